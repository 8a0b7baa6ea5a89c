#include "files/LibraryLoading.h"

#include "edit/MaterialList.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "files/MaterialLibraryFile.h"
#include "files/PromptFolders.h"

namespace strativo {

namespace {

/// Failures after which another file may help; any other failure would only happen again.
bool AsksForAnotherFile(ErrorNumber number) {
    return number == ErrorNumber::pathNotFound || number == ErrorNumber::fileNotFound
           || number == ErrorNumber::invalidArgument;
}

/// The content of the file and its folder, or a number if it cannot be read at all. A failure that
/// another file could put right is thrown.
LibraryContent ReadLibrary(const Project& project, const std::string& name, std::string& folder,
                           LibraryContent (*parse)(std::string_view)) {
    try {
        const std::string path = FindFile(name, FolderOf(project.constructionFile));
        const std::string bytes = ReadFileBytes(path);
        folder = PlaceOf(path);
        return parse(bytes);
    } catch (const RuntimeError& error) {
        if (AsksForAnotherFile(error.Number()))
            throw;
        LibraryContent nothing;
        nothing.library = EmptyLibrary();
        nothing.failure = error.Number();
        return nothing;
    }
}

LibraryLoad ResultOf(const LibraryContent& content) {
    if (content.failure)
        return LibraryLoad::failed;
    return content.wrongVersion ? LibraryLoad::wrongVersion : LibraryLoad::loaded;
}

/// The wrong version is reported first, because it comes first in the file.
void Report(const LibraryContent& content, const FileMessages& messages, Prompts& prompts) {
    if (content.wrongVersion)
        prompts.ShowMessage({messages.wrongVersion, ""});
    if (content.failure)
        prompts.ShowMessage({messages.Text(*content.failure), ""});
}

/// Asks for another file name after a failure. Unlike at the first prompt, cancelling here ends the
/// program.
std::string AskForStandardFileAgain(Project& project, Prompts& prompts) {
    const std::optional<std::string> name =
        PromptLibraryFile(project, standardLibraryNumber, "stdmat.lby", prompts);
    if (name)
        return *name;
    project.standardLibraryFile.clear();
    prompts.ShowMessage({"Cancel pressed aborting load", ""});
    throw ProgramEnd();
}

LibraryLoad TakeStandardLibrary(Project& project, const LibraryContent& content, Prompts& prompts) {
    project.standardLibrary = content.library;
    // Unlike for the user library, a wrong version still counts as loaded.
    project.standardLoaded = !content.failure;
    Report(content, standardLibraryMessages, prompts);
    return ResultOf(content);
}

/// Removes the user library from the material list.
void WithdrawUserLibrary(Project& project) {
    project.userLoaded = false;
    if (project.shownLibrary == userLibraryNumber)
        ShowLibrary(project, standardLibraryNumber);
}

LibraryLoad TakeUserLibrary(Project& project, const LibraryContent& content, Prompts& prompts) {
    project.userLibrary = content.library;
    const LibraryLoad result = ResultOf(content);
    if (result == LibraryLoad::loaded) {
        project.userLoaded = true;
        project.shownLibrary = userLibraryNumber;
        return result;
    }
    WithdrawUserLibrary(project);
    if (content.wrongVersion)
        project.userLibraryFile.clear();
    Report(content, userLibraryMessages, prompts);
    return result;
}

} // namespace

std::optional<std::string> PromptLibraryFile(Project& project, int libraryNumber,
                                             const std::string& initialName, Prompts& prompts) {
    const char* title =
        libraryNumber == userLibraryNumber ? userLibraryPrompt : standardLibraryPrompt;
    const std::string folder = LibraryFolder(project, libraryNumber);
    return Used(project, prompts.AskOpenFile(
                             {title, "Material Files (*.lby)|*.lby", initialName, "LBY", folder}));
}

LibraryLoad LoadStandardLibrary(Project& project, Prompts& prompts) {
    std::string& name = project.standardLibraryFile;
    if (name == singleBlank)
        name = project.rememberedLibrary;
    if (name.empty())
        name = PromptLibraryFile(project, standardLibraryNumber, "", prompts).value_or("");
    if (name.empty() || name == singleBlank) {
        name.clear();
        return LibraryLoad::cancelled;
    }
    for (;;) {
        try {
            const LibraryContent content =
                ReadLibrary(project, name, project.standardLibraryFolder, ParseStandardLibrary);
            return TakeStandardLibrary(project, content, prompts);
        } catch (const RuntimeError& error) {
            prompts.ShowMessage({standardLibraryMessages.Text(error.Number()), ""});
            name = AskForStandardFileAgain(project, prompts);
        }
    }
}

LibraryLoad LoadUserLibrary(Project& project, Prompts& prompts) {
    std::string& name = project.userLibraryFile;
    if (name.empty())
        name = PromptLibraryFile(project, userLibraryNumber, "", prompts).value_or("");
    if (name.empty() || name == singleBlank) {
        name.clear();
        return LibraryLoad::cancelled;
    }
    for (;;) {
        // A cancel is not handled right away: opening the single blank fails and asks once more.
        const bool cancelled = name == singleBlank;
        try {
            const LibraryContent content =
                ReadLibrary(project, name, project.userLibraryFolder, ParseUserLibrary);
            return TakeUserLibrary(project, content, prompts);
        } catch (const RuntimeError& error) {
            prompts.ShowMessage({userLibraryMessages.Text(error.Number()), ""});
            name =
                PromptLibraryFile(project, userLibraryNumber, name, prompts).value_or(singleBlank);
        }
        if (cancelled && name == singleBlank) {
            name.clear();
            return LibraryLoad::givenUp;
        }
    }
}

void DropUserLibrary(Project& project) {
    project.userLibrary = EmptyLibrary();
    project.userLibraryFolder.clear();
    WithdrawUserLibrary(project);
}

} // namespace strativo
