#include "project/SaveDrawing.h"

#include "edit/Saying.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "files/PromptFolders.h"

namespace strativo {

bool SaveDrawing(Project& project, const std::string& suggestedName, const std::string& svg,
                 Prompts& prompts) {
    const std::string folder = ConstructionFolder(project, project.constructionFile);
    const auto path =
        Used(project, prompts.AskSaveFile({"Save section", "SVG drawings (*.svg)|*.svg",
                                           suggestedName, "svg", folder}));
    if (!path || path->empty())
        return false;
    try {
        FileStamp stamp;
        const std::string notSafe = ReplaceFile(
            *path, [&](const ByteSink& sink) { sink(svg); }, stamp);
        Say(project, "Section saved as " + NameAndFolder(*path));
        if (!notSafe.empty())
            prompts.ShowMessage(AboutFile(*path, savedButNotSafe + notSafe));
        return true;
    } catch (const WriteError& error) {
        prompts.ShowMessage(
            AboutFile(*path, std::string("The drawing was not saved: ") + error.what()));
        return false;
    }
}

} // namespace strativo
