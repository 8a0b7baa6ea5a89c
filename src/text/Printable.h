#pragma once

#include <string>
#include <string_view>

namespace strativo {

/// UTF-8 with each control character (below 32, and 127 to 159) as "\u00XX", so that a text from a
/// file can neither steer a terminal nor begin a line of its own.
std::string Printable(std::string_view utf8);

/// The same with each line break (CR, LF, or one of each) as one blank first.
std::string PrintableLine(std::string_view utf8);

} // namespace strativo
