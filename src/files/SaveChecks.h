#pragma once

#include "model/Project.h"

#include <vector>

namespace strativo {

/// Constructions with a layer in the first slot and any layer of thickness 0.
bool HasZeroThickness(const Construction& construction);
std::vector<int> ZeroThicknessConstructions(const Project& project);

/// Transparent constructions with a layer in the first slot and absorptions that add up to 0.
bool HasZeroAbsorption(const Construction& construction);
std::vector<int> ZeroAbsorptionConstructions(const Project& project);

} // namespace strativo
