#include "project/LibraryCommands.h"

#include "edit/MaterialList.h"
#include "files/LibraryLoading.h"

namespace strativo {

namespace {

/// A loaded library is sorted by name even when it is not the shown one; these commands have always
/// sorted the shown one as well.
void SortAndRefresh(Project& project, MaterialLibrary& loaded) {
    SortLibraryByName(loaded);
    SortByName(project);
    RefreshMaterialList(project);
}

} // namespace

LibraryLoad LoadStandard(Project& project, Prompts& prompts) {
    const std::string remembered = project.standardLibraryFile;
    project.standardLibraryFile.clear();
    const LibraryLoad result = LoadStandardLibrary(project, prompts);
    const bool loaded = result == LibraryLoad::loaded || result == LibraryLoad::wrongVersion;
    if (!loaded)
        project.standardLibraryFile = remembered;
    SortAndRefresh(project, project.standardLibrary);
    if (loaded)
        ShowLibrary(project, standardLibraryNumber);
    return result;
}

LibraryLoad LoadMaterials(Project& project, Prompts& prompts) {
    if (project.userLibraryNeeded)
        prompts.ShowMessage({"The user material file is being used, make sure the\r"
                             "new user file has all the current materials.",
                             "The user material file is in use"});
    const std::string remembered = project.userLibraryFile;
    project.userLibraryFile.clear();
    const LibraryLoad result = LoadUserLibrary(project, prompts);
    const bool loaded = result == LibraryLoad::loaded;
    // After a wrong version the old name comes back too, although the library is empty by then.
    if (!loaded)
        project.userLibraryFile = remembered;
    SortAndRefresh(project, project.userLibrary);
    if (loaded)
        ShowLibrary(project, userLibraryNumber);
    return result;
}

} // namespace strativo
