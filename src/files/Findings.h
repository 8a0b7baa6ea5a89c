#pragma once

#include "files/Finding.h"
#include "model/Project.h"

#include <string>
#include <vector>

namespace strativo {

/// Everything that the save checks ask about; layers without a material or cavity type;
/// constructions without layers; glass types of either kind with a repeated name or impossible
/// values; and whatever is implausible. Constructions come first, by number, then ordinary and
/// finally two-dimensional glass types.
std::vector<Finding> FindingsOf(const Project& project);

/// The findings about the current layer of the current construction, in one line; "" for none.
std::string CurrentLayerFinding(const Project& project);

} // namespace strativo
