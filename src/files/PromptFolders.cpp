#include "files/PromptFolders.h"

#include "files/FileAccess.h"

#include <filesystem>

namespace strativo {

namespace {

bool IsFolder(const std::string& path) {
    std::error_code error;
    return !path.empty() && std::filesystem::is_directory(path, error);
}

} // namespace

std::string PlaceOf(const std::string& path) {
    const std::string folder = FolderOf(path);
    return folder.empty() ? "." : folder;
}

std::string ConstructionFolder(const Project& project, const std::string& file) {
    if (!file.empty() && IsFolder(PlaceOf(file)))
        return PlaceOf(file);
    return IsFolder(project.usedFolder) ? project.usedFolder : "";
}

std::string LibraryFolder(const Project& project, int libraryNumber) {
    const std::string& own = libraryNumber == userLibraryNumber ? project.userLibraryFolder
                                                                : project.standardLibraryFolder;
    return IsFolder(own) ? own : ConstructionFolder(project, project.constructionFile);
}

std::optional<std::string> Used(Project& project, std::optional<std::string> answer) {
    if (answer)
        project.usedFolder = PlaceOf(*answer);
    return answer;
}

} // namespace strativo
