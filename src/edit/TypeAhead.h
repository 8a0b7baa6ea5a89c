#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// The line (from 0) of the name that typed letters lead to, without regard to letter case: the
/// next one, from the line given on and round, that begins with them, else the next one that
/// contains them. One letter typed again and again goes through the names that begin with it. -1
/// when there is none.
int LineOfTyped(const std::vector<std::string>& names, std::string_view typed, int from);

} // namespace strativo
