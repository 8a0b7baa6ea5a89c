#pragma once

#include <string>

namespace strativo {

/// A variable's value if it is an absolute path, else "": others are to be ignored.
std::string FolderFromEnvironment(const char* variable);

/// $HOME or, where that is no absolute path, the user's home folder in the system's list of users;
/// "" where that has none.
std::string HomeFolder();

/// The program's folder for what it remembers: $XDG_STATE_HOME/strativo, else
/// ~/.local/state/strativo; "" without a home folder.
std::string StateFolder();

/// The folder for settings: $XDG_CONFIG_HOME, else ~/.config; "" without a home folder.
std::string ConfigFolder();

} // namespace strativo
