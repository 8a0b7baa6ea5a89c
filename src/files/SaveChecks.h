#pragma once

#include "model/Project.h"

#include <vector>

namespace strativo {

/// Constructions whose first slot holds a layer and that have a layer of thickness 0.
std::vector<int> ZeroThicknessConstructions(const Project& project);

/// Transparent constructions whose first slot holds a layer and whose absorptions add up to 0.
std::vector<int> ZeroAbsorptionConstructions(const Project& project);

} // namespace strativo
