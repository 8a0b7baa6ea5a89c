#include "project/Recovery.h"

#include "edit/GlassTypes.h"
#include "edit/MaterialList.h"
#include "files/FileAccess.h"
#include "project/FileCommands.h"

#include <ctime>
#include <filesystem>

namespace strativo {

namespace {

constexpr char title[] = "Recovered project";

/// The content of a copy.
struct ReadCopy {
    Project project;
    SnapshotHead head;
};

std::string ShownTime(std::int64_t seconds) {
    char text[64] = {};
    const std::time_t time = seconds;
    std::tm parts{};
    if (localtime_r(&time, &parts) == nullptr)
        return "";
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
    return text;
}

Message Offer(const ReadCopy& copy) {
    const int count = copy.project.constructionCount;
    return {"Strativo ended before the changes to this file were saved:\n"
                + ShownFileName(copy.head.originalPath) + "\n\nA copy of "
                + ShownTime(copy.head.time) + " was kept, with " + std::to_string(count)
                + (count == 1 ? " construction" : " constructions")
                + ".  Do you wish to open it?\n\n"
                  "No sets it aside. Cancel leaves it for the next start.",
            title,
            Buttons::yesNoCancel,
            Icon::question,
            Answer::yes,
            Encoding::utf8};
}

void TellDamaged(const LeftCopy& copy, const std::string& reason, Prompts& prompts) {
    const std::string path = SetDamagedCopyAside(copy);
    Message message{
        "A copy of unsaved work cannot be opened: " + reason + ".\nIt stays here:\n" + path, title};
    message.encoding = Encoding::utf8;
    prompts.ShowMessage(message);
}

bool Read(const LeftCopy& copy, ReadCopy& read, Prompts& prompts) {
    try {
        read.head = ReadSnapshot(ReadFileBytes(copy.path), read.project);
        return true;
    } catch (const DamagedSnapshot& damaged) {
        TellDamaged(copy, damaged.what(), prompts);
    } catch (const RuntimeError& error) {
        TellDamaged(copy, "run-time error " + std::to_string(static_cast<int>(error.Number())),
                    prompts);
    }
    return false;
}

/// Whether both paths lead to the same file or, when it no longer exists, would lead to it.
bool IsOf(const std::string& original, const std::string& path) {
    if (IsSameFile(path, original))
        return true;
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return !original.empty()
           && absolute.lexically_normal() == std::filesystem::path(original).lexically_normal();
}

/// Every construction gets a new window, since none of the present ones is still there.
void AskForWindows(Project& project) {
    ++project.beginnings;
    for (const int number : ConstructionsInUse(project))
        project.constructions[number].window.opening = ++project.openings;
    project.windowToActivate = project.currentConstruction;
    RefreshMaterialList(project);
    RefreshGlassTypeList(project);
}

void Open(const LeftCopy& copy, ReadCopy&& read, Project& project, WorkKeeper& keeper) {
    const bool ofTheFile = read.project.stampedFile == read.project.constructionFile;
    project = std::move(read.project);
    project.constructionFile = read.head.originalPath;
    // This lets Save notice that the original has changed in the meantime.
    project.stampedFile = ofTheFile ? project.constructionFile : "";
    project.changed = true;
    ++project.contentsReplaced;
    keeper.TakeOver(copy, read.head, project);
    AskForWindows(project);
}

} // namespace

RecoveryResult OfferRecovery(Project& project, WorkKeeper& keeper, const std::string& commandLine,
                             Prompts& prompts) {
    RecoveryResult result;
    for (const LeftCopy& copy : FindLeftCopies(keeper.Folders())) {
        ReadCopy read{project, {}};
        if (!Read(copy, read, prompts))
            continue;
        if (!commandLine.empty() && !IsOf(read.head.originalPath, commandLine)) {
            result.notice = "Unsaved work on " + ShownFileName(read.head.originalPath)
                            + " is kept, and offered at a start without a file";
            continue;
        }
        const Answer answer = prompts.ShowMessage(Offer(read));
        if (answer == Answer::no) {
            RefuseCopy(copy);
            continue;
        }
        if (answer == Answer::yes) {
            Open(copy, std::move(read), project, keeper);
            result.opened = true;
        }
        break;
    }
    RemoveOldCopies(keeper.Folders(), std::time(nullptr));
    return result;
}

} // namespace strativo
