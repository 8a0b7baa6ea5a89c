#include "project/LibraryCommands.h"

#include "edit/MaterialList.h"
#include "files/LibraryLoading.h"

namespace strativo {

namespace {

void SortAndRefresh(Project& project, Desktop& desktop) {
    SortByName(project);
    RefreshMaterialList(project, desktop);
}

} // namespace

void LoadStandard(Project& project, Desktop& desktop) {
    const std::string remembered = project.standardLibraryFile;
    project.standardLibraryFile.clear();
    const bool loaded = LoadStandardLibrary(project, desktop);
    if (!loaded)
        project.standardLibraryFile = remembered;
    SortAndRefresh(project, desktop);
    if (loaded) {
        desktop.EnableMatOption(standardLibraryNumber - 1, true);
        ShowLibrary(project, standardLibraryNumber, desktop);
    }
}

void LoadMaterials(Project& project, Desktop& desktop) {
    if (project.userLibraryNeeded)
        desktop.ShowMessage({"The user material file is being used, make sure the\r"
                             "new user file has all the current materials.",
                             "The user material file is in use"});
    const std::string remembered = project.userLibraryFile;
    project.userLibraryFile.clear();
    const bool loaded = LoadUserLibrary(project, desktop) == UserLoad::loaded;
    // After a wrong version too: the old name comes back although the library is now empty.
    if (!loaded)
        project.userLibraryFile = remembered;
    SortAndRefresh(project, desktop);
    if (loaded) {
        desktop.EnableMatOption(userLibraryNumber - 1, true);
        ShowLibrary(project, userLibraryNumber, desktop);
    }
}

} // namespace strativo
