#pragma once

#include "model/Project.h"

#include <string>
#include <vector>

namespace strativo {

struct Settings {
    std::string help = noHelpFile;       ///< path of the help file
    std::string stdMat = defaultLibrary; ///< remembered path of the standard library
};

/// The settings files in the order of their precedence: the user's, then the system's.
std::vector<std::string> SettingsFiles();

/// Reads section "Files" key by key from the first file that has the key; values are taken as
/// they stand. Never writes.
Settings ReadSettings(const std::vector<std::string>& files);

} // namespace strativo
