#pragma once

#include "files/NamedPart.h"
#include "model/Project.h"

#include <string>
#include <vector>

namespace strativo {

/// The names (of constructions in use and glass types) and library paths that would not survive
/// writing and reading, or that would hide what follows them in the file.
std::vector<std::string> UnreadableNames(const Project& project);

/// Whether the name or path would survive writing and reading.
bool ComesBack(NamedPart part, const std::string& name);

} // namespace strativo
