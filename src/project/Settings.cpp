#include "project/Settings.h"

#include "files/FileAccess.h"
#include "project/UserFolders.h"

#define SI_NO_CONVERSION
#define SI_IMPLEMENTATION
#include <SimpleIni.h>

namespace strativo {

namespace {

constexpr char fileName[] = "Stratv.ini";
constexpr char section[] = "Files";

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
    std::vector<std::string> files;
    for (const std::string& folder : {ConfigFolder(), std::string("/etc/xdg")})
        if (!folder.empty())
            files.push_back(folder + "/" + fileName);
    return files;
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
