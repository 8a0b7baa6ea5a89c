#pragma once

#include "files/Finding.h"
#include "model/Project.h"

#include <string>
#include <vector>

namespace strativo {

/// What the save checks ask about, layers without a material or cavity type, constructions without
/// layers, glass types of either kind with a name given before or with impossible values, and what
/// is implausible: constructions in number order, then ordinary glass types, then two-dimensional
/// ones.
std::vector<Finding> FindingsOf(const Project& project);

/// What is found about the current layer of the current construction, as one line; "" for nothing.
std::string CurrentLayerFinding(const Project& project);

} // namespace strativo
