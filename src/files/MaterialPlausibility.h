#pragma once

#include "files/Finding.h"

#include <vector>

namespace strativo {

/// The values of a material that calculations use.
struct MaterialValues {
    double conductivity = 0; ///< W/m C
    double density = 0;      ///< kg/m3
    double specificHeat = 0; ///< J/kg C
};

/// Reports values that no building material has or that look exchanged; 0 counts as missing.
std::vector<BrokenRule> RulesBrokenByMaterial(const MaterialValues& values);

} // namespace strativo
