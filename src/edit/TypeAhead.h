#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// The line (from 0) that typed letters lead to, ignoring case; -1 when there is none. It is the
/// next name that begins with them, searching from the given line and starting over at the end, or
/// else the next one that contains them. The same letter typed repeatedly steps through the names
/// that begin with it.
int LineOfTyped(const std::vector<std::string>& names, std::string_view typed, int from);

} // namespace strativo
