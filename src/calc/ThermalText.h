#pragma once

#include "calc/ThermalConditions.h"

#include <string>
#include <vector>

namespace strativo {

/// A note shown once with any thermal figures.
inline constexpr char cavityNote[] =
    "Cavities have the fixed resistances of the program, not those of ISO 6946 for width, "
    "direction and ventilation; for another value use a type 3 cavity.";

/// The thermal figures of a construction as lines of columns, indented by two blanks: sums,
/// U-values for all directions of heat flow, then temperatures and characteristics for the given
/// directions. If they are not available, one line with the reason. Names are in the file's bytes.
std::vector<std::string> ThermalLines(const Construction& construction,
                                      const ThermalConditions& conditions,
                                      const std::vector<HeatFlow>& flows);

} // namespace strativo
