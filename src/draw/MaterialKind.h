#pragma once

#include "draw/Drawing.h"
#include "model/Layer.h"

namespace strativo {

/// What a material is made of, judging by its name and conductivity; it decides the colour.
enum class MaterialKind {
    cavity,
    insulation,
    glass,
    masonry,
    concrete,
    wood,
    plaster,
    metal,
    other
};
inline constexpr int materialKinds = static_cast<int>(MaterialKind::other) + 1;

MaterialKind KindOf(const Layer& layer);
const char* KindName(MaterialKind kind);
DrawnColour KindColour(MaterialKind kind);

} // namespace strativo
