#include "project/Settings.h"

#include "files/FileAccess.h"

#include <cstdlib>

#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

namespace strativo {

namespace {

constexpr char fileName[] = "Stratv.ini";
constexpr char section[] = "Files";

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// The bytes of a settings file; empty when it is missing or cannot be read, for instance because
/// it is a folder or a FIFO.
std::string BytesIfReadable(const std::string& path) {
    try {
        return ReadFileBytes(path);
    } catch (const RuntimeError&) {
        return "";
    }
}

} // namespace

std::vector<std::string> SettingsFiles() {
    std::string folder = Environment("XDG_CONFIG_HOME");
    if (folder.empty())
        folder = Environment("HOME") + "/.config";
    return {folder + "/" + fileName, std::string("/etc/xdg/") + fileName};
}

Settings ReadSettings(const std::vector<std::string>& files) {
    Settings settings;
    // The last file first, so that the earlier ones overrule it key by key.
    for (auto file = files.rbegin(); file != files.rend(); ++file) {
        CSimpleIniCaseA ini;
        ini.LoadData(BytesIfReadable(*file));
        settings.help = ini.GetValue(section, "Help", settings.help.c_str());
        settings.stdMat = ini.GetValue(section, "StdMat", settings.stdMat.c_str());
    }
    return settings;
}

} // namespace strativo
