#pragma once

#include "model/Project.h"
#include "port/Desktop.h"

#include <vector>

namespace strativo {

/// Constructions whose first slot holds a layer and that have a layer of thickness 0.
std::vector<int> ZeroThicknessConstructions(const Project& project);

/// Transparent constructions whose first slot holds a layer and whose absorptions add up to 0.
std::vector<int> ZeroAbsorptionConstructions(const Project& project);

/// Asks about each of these where there are any, and about names that could not be read back from
/// the file; false when the user then refuses to save.
bool CheckBeforeSave(const Project& project, Prompts& prompts);

} // namespace strativo
