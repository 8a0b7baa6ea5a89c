#pragma once

#include "files/NamedPart.h"
#include "model/Project.h"

#include <string>
#include <vector>

namespace strativo {

/// The names of constructions in use and of glass types, and the library paths, that a reader of
/// the written file would not get back as they are, or that would hide what follows them.
std::vector<std::string> UnreadableNames(const Project& project);

/// Whether a reader of the written file would get the name or path back as it is.
bool ComesBack(NamedPart part, const std::string& name);

} // namespace strativo
