#pragma once

#include "model/Project.h"

#include <string>

namespace strativo::fuzz {

/// What was written of a project can be read with its libraries and is the same project. Its names
/// are to be such that a file can carry them.
void RequireReadsBack(const Project& project, const std::string& written);

} // namespace strativo::fuzz
