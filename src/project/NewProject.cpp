#include "project/NewProject.h"

#include "calc/LayerList.h"
#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "edit/MaterialList.h"
#include "files/LibraryLoading.h"

#include <filesystem>

namespace strativo {

namespace {

/// Leaves one slot, not in use and without layers.
void ResetConstructions(Project& project) {
    project.constructions = NumberedList<Construction>(1);
    project.lowestFreeHint = 1;
    project.currentConstruction = 1;
    ++project.beginnings;
}

std::string WorkingDirectory() {
    std::error_code error;
    return std::filesystem::current_path(error).string();
}

} // namespace

void StartUp(Project& project, const Settings& settings) {
    project.helpFile = settings.help;
    project.rememberedLibrary = settings.stdMat;
    project.startDirectory = WorkingDirectory();
}

bool AsksAboutChanges(const Project& project) {
    return project.constructionCount > 0 && project.changed;
}

bool ConfirmDiscardChanges(const Project& project, Prompts& prompts) {
    if (!AsksAboutChanges(project))
        return true;
    const Message question = YesNoQuestion("Changes have not been saved.  Continue without saving?",
                                           "Warning", Answer::no);
    return prompts.ShowMessage(question) == Answer::yes;
}

bool NewProject(Project& project, Prompts& prompts) {
    if (!ConfirmDiscardChanges(project, prompts))
        return false;
    project.comments = Comments();
    RemoveConstructions(project, project.constructions.Size());
    ResetConstructions(project);
    ResetGlassTypes(project);
    project.userLibraryNeeded = false;
    project.changed = false;
    project.constructionFile.clear();
    ++project.contentsReplaced;
    RefreshGlassTypeList(project);
    return true;
}

void NewConstruction(Project& project, Prompts& prompts) {
    if (!project.standardLoaded) {
        LoadStandardLibrary(project, prompts);
        SortLibraryByName(project.standardLibrary);
        RefreshMaterialList(project);
    }
    project.dialogHidden = false;
    OpenConstructionWindow(project);
    RefreshLayerList(project.constructions[project.currentConstruction]);
    project.windowToActivate = project.currentConstruction;
}

} // namespace strativo
