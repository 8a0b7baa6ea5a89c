#pragma once

#include "files/Finding.h"

#include <vector>

namespace strativo {

/// What a material is calculated with.
struct MaterialValues {
    double conductivity = 0; ///< W/m C
    double density = 0;      ///< kg/m3
    double specificHeat = 0; ///< J/kg C
};

/// Values that no building material has, or that look exchanged; a value of 0 counts as missing.
std::vector<BrokenRule> RulesBrokenByMaterial(const MaterialValues& values);

} // namespace strativo
