#include "project/NewProject.h"

#include "calc/LayerList.h"
#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "edit/LayerClipboard.h"
#include "edit/MaterialList.h"
#include "files/LibraryLoading.h"

#include <filesystem>

namespace strativo {

namespace {

/// One slot, not in use, without layers.
void ResetConstructions(Project& project) {
    project.constructions.Clear();
    project.constructions.Append();
    project.lowestFreeHint = 1;
    project.currentConstruction = 1;
}

/// "Make all Icons" makes windows for slots that are not in use.
void CloseEmptyWindows(const Project& project, Prompts& prompts) {
    for (int number = 1; number <= project.constructions.Size(); ++number)
        if (!InUse(project, number))
            prompts.CloseConstructionWindow(number);
}

std::string WorkingDirectory() {
    std::error_code error;
    return std::filesystem::current_path(error).string();
}

} // namespace

void StartUp(Project& project, const Settings& settings, Prompts& prompts) {
    project.helpFile = settings.help;
    project.rememberedLibrary = settings.stdMat;
    project.startDirectory = WorkingDirectory();
    EmptyLibrary(project.standardLibrary);
    EmptyLibrary(project.userLibrary);
    project.standardLibraryFile = singleBlank;
    project.userLibraryFile.clear();
    project.closingInProgress = false;
    project.userLibraryNeeded = false;
    project.userLoaded = false;
    project.standardLoaded = false;
    ClearClipboard(project.clipboard);
    project.constructionCount = 0;
    project.changed = false;
    NewProject(project, prompts);
    project.shownLibrary = standardLibraryNumber;
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
    CloseEmptyWindows(project, prompts);
    RemoveConstructions(project, project.constructions.Size(), prompts);
    ResetConstructions(project);
    ResetGlassTypes(project);
    project.userLibraryNeeded = false;
    project.changed = false;
    project.constructionFile.clear();
    ++project.contentsReplaced;
    prompts.RefreshGlassTypeList();
    return true;
}

void OpenConstructionWindow(Project& project, Prompts& prompts) {
    const int number = FirstFreeConstructionSlot(project);
    Construction& construction = project.constructions[number];
    construction = Construction();
    construction.name = ConstructionTitle(number);
    construction.window.open = true;
    ++project.constructionCount;
    ActivateConstruction(project, number);
    prompts.OpenConstructionWindow(number);
}

void NewConstruction(Project& project, Prompts& prompts) {
    if (!project.standardLoaded) {
        LoadStandardLibrary(project, prompts);
        SortLibraryByName(project.standardLibrary);
        RefreshMaterialList(project, prompts);
    }
    prompts.ShowMaterialDialog();
    OpenConstructionWindow(project, prompts);
    RefreshLayerList(project, project.currentConstruction, prompts);
    prompts.ActivateConstructionWindow(project.currentConstruction);
}

} // namespace strativo
