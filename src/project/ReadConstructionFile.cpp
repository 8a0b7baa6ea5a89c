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

ParsedFile ReadLines(Project& project, const std::string& source, Desktop& desktop) {
    bool triedLibrary = false;
    const auto create = [&] {
        // A library that cannot be loaded is reported once, not for each construction.
        if (!project.standardLoaded && !triedLibrary)
            LoadStandardLibrary(project, desktop);
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

void LoadNeededUserLibrary(const ParsedFile& parsed, Project& project, Desktop& desktop) {
    if (parsed.userLineSeen) {
        if (LoadUserLibrary(project, desktop) == UserLoad::givenUp)
            EndWithoutUserLibrary(desktop);
        SortByName(project);
    } else if (project.userLibraryNeeded) {
        desktop.ShowMessage({"This construction file requires a user material library", userTitle});
        project.userLibraryFile.clear();
        LoadUserLibrary(project, desktop);
        if (project.userLibraryFile.empty())
            EndWithoutUserLibrary(desktop);
        SortByName(project);
    }
}

void LoadNeededStandardLibrary(const ParsedFile& parsed, Project& project, Desktop& desktop) {
    if (parsed.standardLineSeen) {
        LoadStandardLibrary(project, desktop);
        SortByName(project);
    } else if (!project.standardLoaded) {
        desktop.ShowMessage(
            {"This construction file requires a standard material library", standardTitle});
        project.standardLibraryFile.clear();
        LoadStandardLibrary(project, desktop);
        if (project.standardLibraryFile.empty()) {
            desktop.ShowMessage({"Unable to load this file due to missing library", ""});
            desktop.EndProgram();
        }
        SortByName(project);
    }
}

void RecoverFromBadFormat(Project& project, Desktop& desktop) {
    desktop.ShowMessage({incorrectFormat, ""});
    project.standardLibraryFile = singleBlank;
    LoadStandardLibrary(project, desktop);
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

void ReadFile(Project& project, const std::string& source, Desktop& desktop) {
    const ParsedFile parsed = ReadLines(project, source, desktop);
    if (parsed.formatBad)
        RecoverFromBadFormat(project, desktop);
    LoadNeededUserLibrary(parsed, project, desktop);
    LoadNeededStandardLibrary(parsed, project, desktop);
    project.shownLibrary = standardLibraryNumber;
    RefreshMaterialList(project, desktop);
    RelinkLayers(project, desktop);
    project.changed = false;
    ShowLibrary(project, standardLibraryNumber, desktop);
    ActivateLastRead(parsed, project, desktop);
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

/// Reads the source into the project, which has its file name by now. The name goes again where
/// reading stops early, for whatever reason: a fragment must not be saved over the original.
void ReplaceProject(Project& project, const std::string& source, const std::string& messagePrefix,
                    Desktop& desktop) {
    const ContentReplacement replacement(project);
    ResetForReading(project, desktop);
    const unsigned activationsBefore = project.activations;
    try {
        ReadFile(project, source, desktop);
    } catch (const RuntimeError& error) {
        project.constructionFile.clear();
        desktop.ShowMessage({messagePrefix + constructionFileMessages.Text(error.Number()), ""});
        // A library may have been loaded, or only named, before the failure.
        RefreshMaterialList(project, desktop);
        // The windows of what was read lie on top: the last of them is the active one.
        if (project.activations != activationsBefore)
            desktop.ActivateConstructionWindow(project.currentConstruction);
    } catch (...) {
        project.constructionFile.clear();
        throw;
    }
    desktop.RefreshGlassTypeList();
}

} // namespace

void ReadConstructionFile(Project& project, const std::string& path, Desktop& desktop) {
    project.constructionFile = path.empty() ? PromptConstructionFile(desktop) : path;
    if (project.constructionFile == singleBlank) {
        project.constructionFile.clear();
        return;
    }
    const std::string source = project.constructionFile;
    ReplaceProject(project, source, path.empty() ? "" : "Command line error\r", desktop);
}

void ReadRecoveryCopy(Project& project, const std::string& copy, const std::string& originalName,
                      Desktop& desktop) {
    project.constructionFile = originalName;
    ReplaceProject(project, copy, "", desktop);
    project.changed = true;
}

} // namespace strativo
