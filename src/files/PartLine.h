#pragma once

#include "model/Project.h"

#include <string_view>

namespace strativo {

/// Adds one layer to the current construction; false for a 16th one. Throws run-time error 5 or 6.
bool ParsePartLine(std::string_view line, bool transparent, Project& project);

} // namespace strativo
