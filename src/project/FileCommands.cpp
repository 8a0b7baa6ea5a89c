#include "project/FileCommands.h"

#include "edit/ConstructionSlots.h"
#include "edit/MaterialList.h"
#include "edit/Saying.h"
#include "files/ConstructionPrompts.h"
#include "files/ConstructionWriter.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "files/PromptFolders.h"
#include "project/NewProject.h"
#include "project/ReadConstructionFile.h"
#include "project/SaveQuestions.h"
#include "text/Windows1252.h"

#include <filesystem>

namespace strativo {

namespace {

/// Another program may have changed the file since it was read, so the user is asked first.
bool MayOverwrite(const Project& project, Prompts& prompts) {
    const FileStamp now = StampOf(project.constructionFile);
    if (project.stampedFile != project.constructionFile || now == FileStamp()
        || now == project.stamp)
        return true;
    Message question =
        YesNoQuestion(PathToUtf8(project.constructionFile)
                          + "\nAnother program has changed this file since it was read or saved "
                            "here.  Overwrite it?",
                      "File changed", Answer::no);
    question.encoding = Encoding::utf8;
    return prompts.ShowMessage(question) == Answer::yes;
}

/// Writes to the file that the project names.
bool WriteNamedFile(Project& project, Prompts& prompts) {
    if (!MayOverwrite(project, prompts))
        return false;
    try {
        const auto write = [&](const ByteSink& sink) { WriteConstructionText(project, sink); };
        const std::string notSafe = ReplaceFile(project.constructionFile, write, project.stamp);
        project.stampedFile = project.constructionFile;
        project.changed = false;
        ++project.contentsSaved;
        Say(project, "Saved as " + NameAndFolder(project.constructionFile));
        if (!notSafe.empty())
            prompts.ShowMessage(AboutFile(project.constructionFile, savedButNotSafe + notSafe));
        return true;
    } catch (const WriteError& error) {
        prompts.ShowMessage(AboutFile(project.constructionFile,
                                      std::string("The file was not saved: ") + error.what()));
        return false;
    }
}

/// Writes to the project's file or, if it has none, to one that the user chooses; the prompt
/// suggests `proposed`.
bool WriteUnder(Project& project, const std::string& proposed, Prompts& prompts) {
    const std::string before = project.constructionFile;
    if (before.empty()) {
        const auto chosen = PromptSaveConstructionFile(project, proposed, prompts);
        if (!chosen)
            return false;
        project.constructionFile = *chosen;
    }
    const bool written = WriteNamedFile(project, prompts);
    if (!written)
        project.constructionFile = before;
    return written;
}

Message CloseQuestion(const Project& project) {
    return {"Save changes to " + ShownFileName(project.constructionFile) + " ?",
            "Construction Have Changed",
            Buttons::yesNoCancel,
            Icon::question,
            Answer::yes,
            Encoding::utf8};
}

} // namespace

std::string ShownFileName(const std::string& constructionFile) {
    return constructionFile.empty() ? "Untitled.con" : PathToUtf8(constructionFile);
}

void OrderMaterialList(Project& project) {
    SortByName(project);
    RefreshMaterialList(project);
}

void OpenCommandLine(Project& project, const std::string& commandLine, Prompts& prompts) {
    if (!commandLine.empty())
        ReadConstructionFile(project, commandLine, prompts);
}

void OpenProject(Project& project, Prompts& prompts) {
    // The prompt starts in the folder of the present file, whose name NewProject clears.
    const std::string file = project.constructionFile;
    if (!NewProject(project, prompts))
        return;
    project.usedFolder = ConstructionFolder(project, file);
    ReadConstructionFile(project, "", prompts);
}

void OpenDroppedFiles(Project& project, const std::vector<std::string>& paths, Prompts& prompts) {
    if (paths.size() == 1 && !paths.front().empty())
        ReadConstructionFile(project, paths.front(), prompts);
}

bool SaveProject(Project& project, Prompts& prompts) {
    return CheckBeforeSave(project, prompts) && WriteConstructionFile(project, prompts);
}

void SaveProjectByKey(Project& project, Prompts& prompts) {
    if (project.changed)
        SaveProject(project, prompts);
    else
        Say(project, "Nothing counts as changed: Save construction file as... saves all, names, "
                     "types and absorptions too");
}

bool SaveProjectAs(Project& project, Prompts& prompts) {
    const std::string remembered = project.constructionFile;
    project.constructionFile.clear();
    const bool written =
        CheckBeforeSave(project, prompts) && WriteUnder(project, remembered, prompts);
    if (project.constructionFile.empty())
        project.constructionFile = remembered;
    return written;
}

bool WriteConstructionFile(Project& project, Prompts& prompts) {
    return WriteUnder(project, "", prompts);
}

void CloseConstruction(Project& project, int activeConstruction) {
    RemoveConstruction(project, activeConstruction);
}

bool QueryClose(Project& project, Prompts& prompts) {
    if (project.changed) {
        const Answer answer = prompts.ShowMessage(CloseQuestion(project));
        const bool goesAhead =
            answer == Answer::no || (answer == Answer::yes && SaveProject(project, prompts));
        if (!goesAhead)
            return true;
    }
    prompts.QuitHelp();
    return false;
}

} // namespace strativo
