#pragma once

#include "model/Project.h"

#include <vector>

namespace strativo {

/// Whether it has a layer in the first slot and any layer of thickness 0; and those that have.
bool HasZeroThickness(const Construction& construction);
std::vector<int> ZeroThicknessConstructions(const Project& project);

/// Whether it is transparent with a layer in the first slot and absorptions that add up to 0; and
/// those that are.
bool HasZeroAbsorption(const Construction& construction);
std::vector<int> ZeroAbsorptionConstructions(const Project& project);

} // namespace strativo
