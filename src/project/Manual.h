#pragma once

#include <string>

namespace strativo {

/// The first page of the manual, for the program in the folder given: the installed one, else that
/// of the source tree in which the program was built. Where there is neither, the installed one's
/// path, at which nothing is found.
std::string ManualPage(const std::string& programFolder);

} // namespace strativo
