#pragma once

#include <string>

namespace strativo {

/// The first page of the manual for a program in the given folder: the installed manual, or else
/// that of the source tree in which the program was built. If neither exists, the path where the
/// installed one should be.
std::string ManualPage(const std::string& programFolder);

} // namespace strativo
