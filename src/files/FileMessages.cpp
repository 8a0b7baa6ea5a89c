#include "files/FileMessages.h"

#include "text/Windows1252.h"

#include <filesystem>

namespace strativo {

const FileMessages standardLibraryMessages = {
    "Standard material file is incorrect version", "Standard material file is missing.",
    "Standard material file. Drive not available.",
    "Standard material file. That path doesn't exist.", "Standard material file error "};

const FileMessages userLibraryMessages = {
    "User material file is incorrect version", "User material file is missing.",
    "User Material file. Drive not available.", "User Material file. That path doesn't exist.",
    "User Material file error "};

const FileMessages constructionFileMessages = {
    "Construction file (p) is incorrect version", "Construction file (p) is missing.",
    "Construction file (p). Drive not available.",
    "Construction file (p). That path doesn't exist.", "Construction file (p) error "};

const FileMessages glassImportMessages = {
    "Construction file (g) is incorrect version", "Construction file (g) is missing.",
    "Construction file (g). Drive not available.",
    "Construction file (g). That path doesn't exist.", "Construction (g) file error  "};

std::string FileMessages::Text(ErrorNumber number) const {
    switch (number) {
    case ErrorNumber::invalidArgument:
        return wrongVersion;
    case ErrorNumber::fileNotFound:
        return missing;
    case ErrorNumber::deviceUnavailable:
        return noDrive;
    case ErrorNumber::pathNotFound:
        return noPath;
    default:
        return beforeNumber + std::to_string(static_cast<int>(number)) + " occurred.";
    }
}

Message AboutFile(const std::string& path, const std::string& text) {
    Message message{PathToUtf8(path) + "\n" + text, ""};
    message.encoding = Encoding::utf8;
    return message;
}

std::string NameAndFolder(const std::string& path) {
    const std::filesystem::path file(path);
    const std::string folder = file.parent_path().string();
    return PathToUtf8(file.filename().string())
           + (folder.empty() ? "" : " in " + PathToUtf8(folder));
}

} // namespace strativo
