#pragma once

#include "model/Project.h"

#include <string>

namespace strativo {

/// The project as the bytes of a construction file: constructions in use, named glass types and
/// the kept comments.
std::string FormatConstructionFile(const Project& project);

} // namespace strativo
