#include "project/ReadConstructionFile.h"

#include "calc/Relink.h"
#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "edit/MaterialList.h"
#include "files/ConstructionParser.h"
#include "files/ConstructionPrompts.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "files/LibraryLoading.h"
#include "project/NewProject.h"

namespace strativo {

namespace {

constexpr char userTitle[] = "User file Required";
constexpr char standardTitle[] = "Material file Required";

void ResetForReading(Project& project, Desktop& desktop) {
    project.comments = Comments();
    ResetGlassTypes(project);
    project.userLibraryFile.clear();
    project.userLibraryNeeded = false;
    DropUserLibrary(project, desktop);
    // The count is taken once: after earlier removals, constructions numbered above it stay open.
    RemoveConstructions(project, project.constructionCount, desktop);
}

/// What became of the libraries so far.
struct LibrariesRead {
    LibraryLoad standard = LibraryLoad::loaded;
    LibraryLoad user = LibraryLoad::loaded;
    std::string standardName; ///< of the standard library in memory
};

void LoadStandardSorted(Project& project, LibrariesRead& libraries, Desktop& desktop) {
    libraries.standard = LoadStandardLibrary(project, desktop);
    SortLibraryByName(project.standardLibrary);
    if (project.standardLoaded)
        libraries.standardName = project.standardLibraryFile;
}

void LoadUserSorted(Project& project, LibrariesRead& libraries, Desktop& desktop) {
    libraries.user = LoadUserLibrary(project, desktop);
    SortLibraryByName(project.userLibrary);
}

ParsedFile ReadLines(Project& project, const std::string& source, LibrariesRead& libraries,
                     Desktop& desktop) {
    bool triedLibrary = false;
    const auto create = [&] {
        // A library that cannot be loaded is reported once, not for each construction.
        if (!project.standardLoaded && !triedLibrary)
            LoadStandardSorted(project, libraries, desktop);
        triedLibrary = true;
        OpenConstructionWindow(project, desktop);
        project.constructions[project.currentConstruction].name.clear();
    };
    project.stampedFile = project.constructionFile;
    project.stamp = StampOf(project.constructionFile);
    const std::string bytes = ReadFileBytes(source);
    return ParseConstructionFile(bytes, project, desktop, std::ref(create));
}

[[noreturn]] void EndWithoutUserLibrary(Desktop& desktop) {
    desktop.ShowMessage({"Unable to load this file due to missing user library", userTitle});
    desktop.EndProgram();
}

void LoadNeededUserLibrary(const ParsedFile& parsed, Project& project, LibrariesRead& libraries,
                           Desktop& desktop) {
    if (parsed.userLineSeen) {
        LoadUserSorted(project, libraries, desktop);
        if (libraries.user == LibraryLoad::givenUp)
            EndWithoutUserLibrary(desktop);
    } else if (project.userLibraryNeeded) {
        desktop.ShowMessage({"This construction file requires a user material library", userTitle});
        project.userLibraryFile.clear();
        LoadUserSorted(project, libraries, desktop);
        if (project.userLibraryFile.empty())
            EndWithoutUserLibrary(desktop);
    }
}

void LoadNeededStandardLibrary(const ParsedFile& parsed, Project& project, LibrariesRead& libraries,
                               Desktop& desktop) {
    if (parsed.standardLineSeen) {
        LoadStandardSorted(project, libraries, desktop);
    } else if (!project.standardLoaded) {
        desktop.ShowMessage(
            {"This construction file requires a standard material library", standardTitle});
        project.standardLibraryFile.clear();
        LoadStandardSorted(project, libraries, desktop);
        if (project.standardLibraryFile.empty()) {
            desktop.ShowMessage({"Unable to load this file due to missing library", ""});
            desktop.EndProgram();
        }
    }
}

void RecoverFromBadFormat(Project& project, LibrariesRead& libraries, Desktop& desktop) {
    desktop.ShowMessage({incorrectFormat, ""});
    project.standardLibraryFile = singleBlank;
    LoadStandardSorted(project, libraries, desktop);
    RefreshMaterialList(project, desktop);
}

void ActivateLastRead(const ParsedFile& parsed, Project& project, Desktop& desktop) {
    int number = parsed.lastConstruction;
    for (int n = 1; parsed.lastConstruction == 0 && n <= project.constructions.Size(); ++n)
        if (InUse(project, n))
            number = n;
    if (number == 0)
        return;
    ActivateConstruction(project, number);
    desktop.ActivateConstructionWindow(number);
}

/// Layers that found no material would be saved without what they were: the file keeps its own.
FileReading ResultOf(const LibrariesRead& libraries, Project& project) {
    if (libraries.user == LibraryLoad::failed || libraries.standard == LibraryLoad::failed)
        project.constructionFile.clear();
    const bool both =
        libraries.user == LibraryLoad::loaded && libraries.standard == LibraryLoad::loaded;
    return both ? FileReading::whole : FileReading::withoutLibrary;
}

FileReading ReadFile(Project& project, const std::string& source, LibrariesRead& libraries,
                     Desktop& desktop) {
    const ParsedFile parsed = ReadLines(project, source, libraries, desktop);
    if (parsed.formatBad)
        RecoverFromBadFormat(project, libraries, desktop);
    LoadNeededUserLibrary(parsed, project, libraries, desktop);
    LoadNeededStandardLibrary(parsed, project, libraries, desktop);
    project.shownLibrary = standardLibraryNumber;
    RefreshMaterialList(project, desktop);
    RelinkLayers(project, desktop);
    project.changed = false;
    ShowLibrary(project, standardLibraryNumber, desktop);
    ActivateLastRead(parsed, project, desktop);
    return ResultOf(libraries, project);
}

/// While it lives, boxes can be open over a project that is not whole.
class ContentReplacement {
public:
    explicit ContentReplacement(Project& toReplace) : project(toReplace) {
        project.replacingContent = true;
    }
    ~ContentReplacement() {
        project.replacingContent = false;
        ++project.contentsReplaced;
    }
    ContentReplacement(const ContentReplacement&) = delete;
    ContentReplacement& operator=(const ContentReplacement&) = delete;

private:
    Project& project;
};

/// After a reading that stopped early, for whatever reason: a fragment must not be saved over the
/// original, nor under the names of libraries that were only named and not loaded.
void ForgetNames(Project& project, const LibrariesRead& libraries) {
    project.constructionFile.clear();
    project.standardLibraryFile = libraries.standardName;
    if (!project.userLoaded)
        project.userLibraryFile.clear();
}

/// Reads the source into the project, which has its file name by now.
FileReading ReplaceProject(Project& project, const std::string& source,
                           const std::string& messagePrefix, Desktop& desktop) {
    const ContentReplacement replacement(project);
    ResetForReading(project, desktop);
    const unsigned activationsBefore = project.activations;
    LibrariesRead libraries;
    libraries.standardName = project.standardLibraryFile;
    FileReading result = FileReading::stopped;
    try {
        result = ReadFile(project, source, libraries, desktop);
    } catch (const RuntimeError& error) {
        ForgetNames(project, libraries);
        desktop.ShowMessage({messagePrefix + constructionFileMessages.Text(error.Number()), ""});
        // A library may have been loaded before the failure.
        RefreshMaterialList(project, desktop);
        // The windows of what was read lie on top: the last of them is the active one.
        if (project.activations != activationsBefore)
            desktop.ActivateConstructionWindow(project.currentConstruction);
    } catch (...) {
        ForgetNames(project, libraries);
        throw;
    }
    desktop.RefreshGlassTypeList();
    return result;
}

} // namespace

FileReading ReadConstructionFile(Project& project, const std::string& path, Desktop& desktop) {
    project.constructionFile = path.empty() ? PromptConstructionFile(desktop) : path;
    if (project.constructionFile == singleBlank) {
        project.constructionFile.clear();
        return FileReading::cancelled;
    }
    const std::string source = project.constructionFile;
    return ReplaceProject(project, source, path.empty() ? "" : "Command line error\r", desktop);
}

FileReading ReadRecoveryCopy(Project& project, const std::string& copy,
                             const std::string& originalName, Desktop& desktop) {
    project.constructionFile = originalName;
    const FileReading result = ReplaceProject(project, copy, "", desktop);
    project.changed = true;
    return result;
}

} // namespace strativo
