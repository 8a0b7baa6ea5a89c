#pragma once

#include <string>
#include <vector>

namespace strativo {

/// What the program prints instead of starting when its only argument is --help or --version.
/// Empty for any other arguments, which together are the path of a construction file.
std::string HelpOrVersion(const std::vector<std::string>& arguments);

} // namespace strativo
