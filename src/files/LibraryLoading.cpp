#include "files/LibraryLoading.h"

#include "edit/MaterialList.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "files/MaterialLibraryFile.h"

namespace strativo {

namespace {

/// Another file name can help after these; after any other failure it would only fail again.
bool AsksForAnotherFile(ErrorNumber number) {
    return number == ErrorNumber::pathNotFound || number == ErrorNumber::fileNotFound
           || number == ErrorNumber::invalidArgument;
}

std::string LibraryBytes(const Project& project, const std::string& name) {
    return ReadFileBytes(FindFile(name, FolderOf(project.constructionFile)));
}

/// The file name after a failure. Cancelling here, unlike at the first prompt, ends the program.
std::string AskForStandardFileAgain(Project& project, Desktop& desktop) {
    const std::string name = PromptLibraryFile(desktop, standardLibraryPrompt, "stdmat.lby");
    if (name != singleBlank)
        return name;
    project.standardLibraryFile.clear();
    desktop.ShowMessage({"Cancel pressed aborting load", ""});
    desktop.EndProgram();
}

void TakeStandardLibrary(Project& project, LibraryContent&& content, Desktop& desktop) {
    if (content.wrongVersion)
        desktop.ShowMessage({standardLibraryMessages.wrongVersion, ""});
    project.standardLibrary = std::move(content.library);
    // A wrong version counts as loaded all the same, unlike for the user library.
    project.standardLoaded = true;
}

UserLoad TakeUserLibrary(Project& project, LibraryContent&& content, Desktop& desktop) {
    project.userLibrary = std::move(content.library);
    project.userLoaded = true;
    project.shownLibrary = userLibraryNumber;
    if (!content.wrongVersion) {
        desktop.EnableMatOption(userLibraryNumber - 1, true);
        return UserLoad::loaded;
    }
    desktop.ShowMessage({userLibraryMessages.wrongVersion, ""});
    DropUserLibrary(project, desktop);
    project.userLibraryFile.clear();
    return UserLoad::wrongVersion;
}

} // namespace

std::string PromptLibraryFile(Desktop& desktop, const std::string& title,
                              const std::string& initialName) {
    return desktop.AskOpenFile({title, "Material Files (*.lby)|*.lby", initialName, "LBY"})
        .value_or(singleBlank);
}

bool LoadStandardLibrary(Project& project, Desktop& desktop) {
    std::string& name = project.standardLibraryFile;
    if (name == singleBlank)
        name = project.rememberedLibrary;
    if (name.empty())
        name = PromptLibraryFile(desktop, standardLibraryPrompt, "");
    if (name == singleBlank) {
        name.clear();
        return false;
    }
    for (;;) {
        try {
            TakeStandardLibrary(project, ParseStandardLibrary(LibraryBytes(project, name)),
                                desktop);
            return true;
        } catch (const RuntimeError& error) {
            desktop.ShowMessage({standardLibraryMessages.Text(error.Number()), ""});
            if (!AsksForAnotherFile(error.Number()))
                return false;
            name = AskForStandardFileAgain(project, desktop);
        }
    }
}

UserLoad LoadUserLibrary(Project& project, Desktop& desktop) {
    std::string& name = project.userLibraryFile;
    if (name.empty())
        name = PromptLibraryFile(desktop, userLibraryPrompt, "");
    if (name == singleBlank) {
        name.clear();
        return UserLoad::cancelled;
    }
    for (;;) {
        // A cancel is not looked for at once: opening the single blank fails and asks once more.
        const bool cancelled = name == singleBlank;
        try {
            return TakeUserLibrary(project, ParseUserLibrary(LibraryBytes(project, name)), desktop);
        } catch (const RuntimeError& error) {
            desktop.ShowMessage({userLibraryMessages.Text(error.Number()), ""});
            if (!AsksForAnotherFile(error.Number()))
                return UserLoad::failed;
            name = PromptLibraryFile(desktop, userLibraryPrompt, name);
        }
        if (cancelled && name == singleBlank) {
            name.clear();
            return UserLoad::givenUp;
        }
    }
}

void DropUserLibrary(Project& project, Desktop& desktop) {
    EmptyLibrary(project.userLibrary);
    project.userLoaded = false;
    desktop.EnableMatOption(userLibraryNumber - 1, false);
    if (project.shownLibrary == userLibraryNumber)
        ShowLibrary(project, standardLibraryNumber, desktop);
}

} // namespace strativo
