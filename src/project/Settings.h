#pragma once

#include "model/Project.h"

#include <string>
#include <vector>

namespace strativo {

struct Settings {
    std::string help = noHelpFile;       ///< path of the help file
    std::string stdMat = defaultLibrary; ///< remembered path of the standard library
};

/// The settings files in order of precedence: the user's, then the system's.
std::vector<std::string> SettingsFiles();

/// Reads section "Files", taking each key from the first file that has it. Values are taken as they
/// stand; nothing is ever written.
Settings ReadSettings(const std::vector<std::string>& files);

} // namespace strativo
