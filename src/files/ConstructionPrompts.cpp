#include "files/ConstructionPrompts.h"

#include "files/PromptFolders.h"

namespace strativo {

namespace {

constexpr char filter[] = "Construction Files (*.con)|*.con";
constexpr char extension[] = "CON";

} // namespace

std::optional<std::string> PromptConstructionFile(Project& project, Prompts& prompts) {
    const std::string folder = ConstructionFolder(project, project.constructionFile);
    return Used(project,
                prompts.AskOpenFile({"Open Construction file", filter, "", extension, folder}));
}

std::optional<std::string> PromptSaveConstructionFile(Project& project, const std::string& file,
                                                      Prompts& prompts) {
    const std::string name = file.substr(file.rfind('/') + 1);
    const std::string folder = ConstructionFolder(project, file);
    return Used(project, prompts.AskSaveFile(
                             {"Save Construction file as ", filter, name, extension, folder}));
}

} // namespace strativo
