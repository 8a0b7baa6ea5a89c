#pragma once

#include "model/Project.h"

#include <string_view>

namespace strativo {

/// Tells the user for some seconds, in the status bar, what was just done or will be lost. The
/// text is UTF-8; several of one action follow each other.
void Say(Project& project, std::string_view text);

} // namespace strativo
