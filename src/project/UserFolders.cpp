#include "project/UserFolders.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace strativo {

namespace {

/// The folder of a variable, or the one below the home folder.
std::string FolderOr(const char* variable, const std::string& belowHome) {
    const std::string folder = FolderFromEnvironment(variable);
    if (!folder.empty())
        return folder;
    const std::string home = HomeFolder();
    return home.empty() ? "" : home + belowHome;
}

} // namespace

std::string FolderFromEnvironment(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value == '/' ? value : "";
}

std::string HomeFolder() {
    std::string home = FolderFromEnvironment("HOME");
    if (!home.empty())
        return home;
    const passwd* user = getpwuid(geteuid());
    return user != nullptr && user->pw_dir != nullptr && *user->pw_dir == '/' ? user->pw_dir : "";
}

std::string StateFolder() {
    const std::string folder = FolderOr("XDG_STATE_HOME", "/.local/state");
    return folder.empty() ? "" : folder + "/strativo";
}

std::string ConfigFolder() {
    return FolderOr("XDG_CONFIG_HOME", "/.config");
}

} // namespace strativo
