#pragma once

#include "model/Construction.h"

#include <optional>
#include <string>

namespace strativo {

/// Surface resistances, m2 C/W, always both added: the customary external and internal values of
/// a vertical wall, kept fixed because the figure is indicative only.
inline constexpr double outsideSurfaceResistance = 0.06;
inline constexpr double insideSurfaceResistance = 0.12;

/// The layer's resistance in the U-value, m2 C/W: thickness / 1000 / conductivity, 0 for a
/// conductivity of 0, or the fixed resistance of a cavity. A negative conductivity that is no
/// cavity type is used as it is.
double LayerResistance(const Layer& layer);

/// The layer's resistance as the layer list shows it, m2 C/W; 0 where the list shows "n/a".
float LayerListResistance(const Layer& layer);

/// Indicative U-value of the layers in slots 1 to lineCount, W/m2 C, in a steady state with fixed
/// surface resistances. Not available without layers, with any layer of zero thickness, or if the
/// resistances add up to 0.
std::optional<double> IndicativeUValue(const LayerSlots& layers, int lineCount);

/// The text of the U-value: two decimals, or "n/a".
std::string UValueText(const Construction& construction);

} // namespace strativo
