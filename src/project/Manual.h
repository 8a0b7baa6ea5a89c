#pragma once

#include <string>
#include <string_view>

namespace strativo {

/// The first page of the manual for a program in the given folder: the installed manual, or else
/// that of the source tree in which the program was built. If neither exists, the path where the
/// installed one should be.
std::string ManualPage(const std::string& programFolder);

/// The file name of the manual's page about a window, given by its class; that about the main
/// window for any other.
std::string ManualPageAbout(std::string_view window);

} // namespace strativo
