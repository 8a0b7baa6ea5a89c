#include "project/FileCommands.h"

#include "edit/ConstructionSlots.h"
#include "edit/MaterialList.h"
#include "files/ConstructionPrompts.h"
#include "files/ConstructionWriter.h"
#include "files/FileAccess.h"
#include "files/SaveChecks.h"
#include "project/NewProject.h"
#include "project/ReadConstructionFile.h"
#include "text/Windows1252.h"

namespace strativo {

namespace {

Message WriteFailure(const std::string& path, const WriteError& error) {
    Message message{PathToUtf8(path) + "\nThe file was not saved: " + error.what(), ""};
    message.encoding = Encoding::utf8;
    return message;
}

/// Nothing is overwritten unseen: another program may have changed the file meanwhile.
bool MayOverwrite(const Project& project, Desktop& desktop) {
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
    return desktop.ShowMessage(question) == Answer::yes;
}

/// Writes under the name that the project has by now.
bool WriteNamedFile(Project& project, Desktop& desktop) {
    if (!MayOverwrite(project, desktop))
        return false;
    try {
        const auto write = [&](const ByteSink& sink) { WriteConstructionText(project, sink); };
        ReplaceFile(project.constructionFile, write, project.stamp);
        project.stampedFile = project.constructionFile;
        project.changed = false;
        ++project.contentsSaved;
        return true;
    } catch (const WriteError& error) {
        desktop.ShowMessage(WriteFailure(project.constructionFile, error));
        return false;
    }
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

void FinishStartUp(Project& project, const std::string& commandLine, Desktop& desktop) {
    SortByName(project);
    RefreshMaterialList(project, desktop);
    if (!commandLine.empty())
        ReadConstructionFile(project, commandLine, desktop);
}

void OpenProject(Project& project, Desktop& desktop) {
    if (NewProject(project, desktop))
        ReadConstructionFile(project, "", desktop);
}

void OpenDroppedFiles(Project& project, const std::vector<std::string>& paths, Desktop& desktop) {
    if (paths.size() == 1 && !paths.front().empty())
        ReadConstructionFile(project, paths.front(), desktop);
}

bool SaveProject(Project& project, Desktop& desktop) {
    return CheckBeforeSave(project, desktop) && WriteConstructionFile(project, desktop);
}

bool SaveProjectAs(Project& project, Desktop& desktop) {
    const std::string remembered = project.constructionFile;
    project.constructionFile.clear();
    const bool written = SaveProject(project, desktop);
    if (project.constructionFile.empty())
        project.constructionFile = remembered;
    return written;
}

bool WriteConstructionFile(Project& project, Desktop& desktop) {
    const std::string before = project.constructionFile;
    if (project.constructionFile.empty())
        project.constructionFile = PromptSaveConstructionFile(desktop);
    if (project.constructionFile == singleBlank) {
        project.constructionFile.clear();
        return false;
    }
    const bool written = WriteNamedFile(project, desktop);
    if (!written)
        project.constructionFile = before;
    return written;
}

void CloseConstruction(Project& project, std::string_view activeTag, Desktop& desktop) {
    RemoveConstruction(project, TagNumber(activeTag), desktop);
}

bool QueryClose(Project& project, Desktop& desktop) {
    if (project.changed) {
        const Answer answer = desktop.ShowMessage(CloseQuestion(project));
        const bool goesAhead =
            answer == Answer::no || (answer == Answer::yes && SaveProject(project, desktop));
        if (!goesAhead)
            return true;
    }
    desktop.QuitHelp();
    return false;
}

} // namespace strativo
