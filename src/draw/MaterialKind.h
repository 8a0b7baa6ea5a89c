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

/// A conductivity below 0 is that of a cavity, one up to 0.065 W/m C of insulation. Any other layer
/// is of the first kind of which its name has a word, or else a metal above 12 W/m C.
MaterialKind KindOf(const Layer& layer);
/// As a drawing's key names it: "insulation".
const char* KindName(MaterialKind kind);
/// The colour of its layers in a section.
DrawnColour KindColour(MaterialKind kind);

} // namespace strativo
