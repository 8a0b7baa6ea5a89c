#pragma once

#include "files/Finding.h"
#include "model/Construction.h"

#include <vector>

namespace strativo {

/// What is wrong or implausible about a layer of a construction of this type. The values of its
/// material count only where it is linked, which a layer of a positive material number is that has
/// its material in its library.
std::vector<BrokenRule> RulesBrokenByLayer(const Layer& layer, std::int16_t type, bool linked);

/// What is implausible about a construction as a whole.
std::vector<BrokenRule> RulesBrokenByConstruction(const Construction& construction);

} // namespace strativo
