#pragma once

#include "model/Project.h"

#include <string>
#include <vector>

namespace strativo {

/// Something in a project that is likely to be a mistake.
struct Finding {
    std::string rule;     ///< such as "zero-thickness"
    int construction = 0; ///< 0: about a glass type
    int layer = 0;        ///< slot number; 0: about no single layer
    int glassType = 0;    ///< number among the types of its kind; 0: about a construction
    std::string name;     ///< of the construction or glass type
    std::string text;     ///< says where and what, without the rule
};

/// What the save checks ask about, layers without a material or cavity type, constructions without
/// layers, and glass types of either kind with a name given before or with impossible values:
/// constructions in number order, then ordinary glass types, then two-dimensional ones.
std::vector<Finding> FindingsOf(const Project& project);

} // namespace strativo
