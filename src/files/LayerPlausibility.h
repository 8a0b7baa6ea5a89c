#pragma once

#include "files/Finding.h"
#include "model/Construction.h"

#include <vector>

namespace strativo {

/// What is wrong or implausible about a layer in a construction of this type. Its material's values
/// count only if it is linked: a layer with a positive material number is linked when its material
/// is in its library.
std::vector<BrokenRule> RulesBrokenByLayer(const Layer& layer, std::int16_t type, bool linked);

/// What is implausible about a construction as a whole.
std::vector<BrokenRule> RulesBrokenByConstruction(const Construction& construction);

} // namespace strativo
