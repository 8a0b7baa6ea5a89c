#pragma once

#include "model/Construction.h"
#include "model/GlassType.h"

#include <string>
#include <string_view>

namespace strativo {

/// Text as it may stand in HTML and SVG.
std::string Escaped(std::string_view utf8);

/// What a material is made of, as far as its name and conductivity tell; it decides the colour.
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
MaterialKind KindOf(const Layer& layer);
const char* KindName(MaterialKind kind);
const char* KindColour(MaterialKind kind);
inline constexpr int materialKinds = static_cast<int>(MaterialKind::other) + 1;

/// A construction's section as SVG, to scale, outside on the left.
std::string SectionSvg(const Construction& construction);

/// Transmission and absorption of a glass type over the angle of incidence, as SVG.
std::string GlassCurveSvg(const GlassType& type);

} // namespace strativo
