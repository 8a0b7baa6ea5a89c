#include "project/ReadConstructionFile.h"

#include "calc/Relink.h"
#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "edit/LayerClipboard.h"
#include "edit/MaterialList.h"
#include "files/ConstructionParser.h"
#include "files/ConstructionPrompts.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "files/LibraryLoading.h"
#include "files/PromptFolders.h"

#include <utility>

namespace strativo {

namespace {

constexpr char userTitle[] = "User file Required";
constexpr char standardTitle[] = "Material file Required";

void ResetForReading(Project& project) {
    project.comments = Comments();
    ResetGlassTypes(project);
    project.userLibraryFile.clear();
    project.userLibraryNeeded = false;
    DropUserLibrary(project);
    // The count is evaluated once, on purpose: after earlier removals, constructions with higher
    // numbers stay open.
    RemoveConstructions(project, project.constructionCount);
}

/// How loading the libraries has gone so far.
struct LibrariesRead {
    LibraryLoad standard = LibraryLoad::loaded;
    LibraryLoad user = LibraryLoad::loaded;
    std::string standardName; ///< file of the standard library in memory
};

void LoadStandardSorted(Project& project, LibrariesRead& libraries, Prompts& prompts) {
    libraries.standard = LoadStandardLibrary(project, prompts);
    SortLibraryByName(project.standardLibrary);
    if (project.standardLoaded)
        libraries.standardName = project.standardLibraryFile;
}

void LoadUserSorted(Project& project, LibrariesRead& libraries, Prompts& prompts) {
    libraries.user = LoadUserLibrary(project, prompts);
    SortLibraryByName(project.userLibrary);
}

ParsedFile ReadLines(Project& project, LibrariesRead& libraries, Prompts& prompts) {
    ParserEvents events;
    events.createConstruction = [&, triedLibrary = false]() mutable {
        // A library that cannot be loaded is tried and reported once per file, not once per
        // construction.
        if (!project.standardLoaded && !std::exchange(triedLibrary, true))
            LoadStandardSorted(project, libraries, prompts);
        CreateUnnamedConstruction(project);
    };
    int refused = 0;
    events.layerRefused = [&] {
        prompts.Beep();
        ++refused;
    };
    events.progress = [&](std::size_t done, std::size_t total) {
        prompts.ShowProgress(done, total);
    };
    project.stampedFile = project.constructionFile;
    project.stamp = StampOf(project.constructionFile);
    const std::string bytes = ReadFileBytes(project.constructionFile);
    ParsedFile parsed = ParseConstructionFile(bytes, project, events);
    SayNotInserted(project, refused);
    return parsed;
}

[[noreturn]] void EndWithoutUserLibrary(Prompts& prompts) {
    prompts.ShowMessage({"Unable to load this file due to missing user library", userTitle});
    throw ProgramEnd();
}

void LoadNeededUserLibrary(const ParsedFile& parsed, Project& project, LibrariesRead& libraries,
                           Prompts& prompts) {
    if (parsed.userLineSeen) {
        LoadUserSorted(project, libraries, prompts);
        if (libraries.user == LibraryLoad::givenUp)
            EndWithoutUserLibrary(prompts);
    } else if (project.userLibraryNeeded) {
        prompts.ShowMessage({"This construction file requires a user material library", userTitle});
        project.userLibraryFile.clear();
        LoadUserSorted(project, libraries, prompts);
        if (project.userLibraryFile.empty())
            EndWithoutUserLibrary(prompts);
    }
}

void LoadNeededStandardLibrary(const ParsedFile& parsed, Project& project, LibrariesRead& libraries,
                               Prompts& prompts) {
    if (parsed.standardLineSeen) {
        LoadStandardSorted(project, libraries, prompts);
    } else if (!project.standardLoaded) {
        prompts.ShowMessage(
            {"This construction file requires a standard material library", standardTitle});
        project.standardLibraryFile.clear();
        LoadStandardSorted(project, libraries, prompts);
        if (project.standardLibraryFile.empty()) {
            prompts.ShowMessage({"Unable to load this file due to missing library", ""});
            throw ProgramEnd();
        }
    }
}

void RecoverFromBadFormat(Project& project, LibrariesRead& libraries, Prompts& prompts) {
    prompts.ShowMessage({incorrectFormat, ""});
    project.standardLibraryFile = singleBlank;
    LoadStandardSorted(project, libraries, prompts);
    RefreshMaterialList(project);
}

void ActivateLastRead(const ParsedFile& parsed, Project& project) {
    int last = parsed.lastConstruction;
    if (last == 0)
        for (const int number : ConstructionsInUse(project))
            last = number;
    if (last == 0)
        return;
    ActivateConstruction(project, last);
    project.windowToActivate = last;
}

/// When a library failed, the layers that found no material would be saved as something else, so
/// the project loses its file name and the file is safe.
FileReading ResultOf(const ParsedFile& parsed, const LibrariesRead& libraries, Project& project) {
    if (libraries.user == LibraryLoad::failed || libraries.standard == LibraryLoad::failed)
        project.constructionFile.clear();
    const bool both =
        libraries.user == LibraryLoad::loaded && libraries.standard == LibraryLoad::loaded;
    if (!both)
        return FileReading::withoutLibrary;
    return parsed.formatSeen ? FileReading::whole : FileReading::foreign;
}

FileReading ReadFile(Project& project, LibrariesRead& libraries, Prompts& prompts) {
    const ParsedFile parsed = ReadLines(project, libraries, prompts);
    if (parsed.formatBad)
        RecoverFromBadFormat(project, libraries, prompts);
    LoadNeededUserLibrary(parsed, project, libraries, prompts);
    LoadNeededStandardLibrary(parsed, project, libraries, prompts);
    project.shownLibrary = standardLibraryNumber;
    RefreshMaterialList(project);
    RelinkLayers(project);
    project.changed = false;
    ShowLibrary(project, standardLibraryNumber);
    ActivateLastRead(parsed, project);
    return ResultOf(parsed, libraries, project);
}

/// Flags the project as incomplete while it is being replaced, since message boxes can be open
/// meanwhile.
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

/// Called when reading stops early, for whatever reason: a fragment must not be saved over the
/// original, or with the names of libraries that were never loaded.
void ForgetNames(Project& project, const LibrariesRead& libraries) {
    project.constructionFile.clear();
    project.standardLibraryFile = libraries.standardName;
    if (!project.userLoaded)
        project.userLibraryFile.clear();
}

/// Reads the file that the project already names into it.
FileReading ReplaceProject(Project& project, const std::string& messagePrefix, Prompts& prompts) {
    const ContentReplacement replacement(project);
    ResetForReading(project);
    const unsigned activationsBefore = project.activations;
    LibrariesRead libraries;
    libraries.standardName = project.standardLibraryFile;
    FileReading result = FileReading::stopped;
    try {
        result = ReadFile(project, libraries, prompts);
    } catch (const RuntimeError& error) {
        ForgetNames(project, libraries);
        prompts.ShowMessage({messagePrefix + constructionFileMessages.Text(error.Number()), ""});
        // A library may have been loaded before the failure.
        RefreshMaterialList(project);
        // The windows of what was read are on top, and the last of them is active.
        if (project.activations != activationsBefore)
            project.windowToActivate = project.currentConstruction;
    } catch (...) {
        ForgetNames(project, libraries);
        throw;
    }
    RefreshGlassTypeList(project);
    return result;
}

} // namespace

FileReading ReadConstructionFile(Project& project, const std::string& path, Prompts& prompts) {
    const auto chosen =
        path.empty() ? PromptConstructionFile(project, prompts) : Used(project, path);
    project.constructionFile = chosen.value_or("");
    if (!chosen)
        return FileReading::cancelled;
    return ReplaceProject(project, path.empty() ? "" : "Command line error\r", prompts);
}

} // namespace strativo
