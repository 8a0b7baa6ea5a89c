#include "project/Recovery.h"

#include "files/ConstructionWriter.h"
#include "files/FileAccess.h"
#include "project/FileCommands.h"
#include "project/ReadConstructionFile.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <sstream>
#include <unistd.h>
#include <vector>

namespace strativo {

namespace {

namespace fs = std::filesystem;

constexpr char waiting[] = "recovery-";
constexpr char offered[] = "offered-";

/// The first line of a copy, a comment that the reader drops: the stamp and the name of the file
/// that it is a copy of.
struct CopyHead {
    FileStamp stamp;
    std::string originalName;
};

constexpr char headMark[] = "*Recovery copy ";

std::string HeadLine(const Project& project) {
    const std::string& name = project.constructionFile;
    const FileStamp stamp = project.stampedFile == name ? project.stamp : FileStamp();
    std::ostringstream line;
    line << headMark << stamp.device << ' ' << stamp.inode << ' ' << stamp.size << ' '
         << stamp.modified << ' ';
    if (!name.empty())
        line << fs::absolute(name).string();
    line << "\r\n";
    return line.str();
}

CopyHead ReadHead(const std::string& path) {
    std::string line = ReadFileBytes(path);
    line.resize(std::min(line.find("\r\n"), line.size()));
    CopyHead head;
    if (!line.starts_with(headMark))
        return head;
    std::istringstream fields(line.substr(sizeof headMark - 1));
    fields >> head.stamp.device >> head.stamp.inode >> head.stamp.size >> head.stamp.modified;
    fields.ignore(1);
    std::getline(fields, head.originalName, '\0');
    return head;
}

std::string MakeCopyName() {
    char time[32] = {};
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::strftime(time, sizeof time, "%Y-%m-%d-%H%M%S-", &parts);
    return std::string(waiting) + time + std::to_string(getpid()) + ".con";
}

/// The name outlives all other objects: a process that is ended by others asks for it last.
std::string PathOfCopy(const std::string& folder) {
    static const std::string& name = *new std::string(MakeCopyName());
    return folder + "/" + name;
}

/// The copies not offered yet, oldest first.
std::vector<fs::path> WaitingCopies(const std::string& folder) {
    std::vector<fs::path> copies;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(waiting) && name.ends_with(".con"))
            copies.push_back(entry->path());
    }
    std::sort(copies.begin(), copies.end());
    return copies;
}

/// Renames the copy so that it is not offered again; its path afterwards.
std::string MarkAsOffered(const fs::path& copy) {
    const std::string rest = copy.filename().string().substr(sizeof waiting - 1);
    const fs::path renamed = copy.parent_path() / (offered + rest);
    std::error_code error;
    fs::rename(copy, renamed, error);
    return error ? copy.string() : renamed.string();
}

Message Offer(const std::string& originalName) {
    Message message = YesNoQuestion(
        "Strativo ended before the changes to this file were saved:\n" + ShownFileName(originalName)
            + "\n\nA copy of the project was kept.  Do you wish to open it?",
        "Recovered project");
    message.encoding = Encoding::utf8;
    return message;
}

/// Asks about one copy; true when it was opened.
bool OfferCopy(Project& project, const fs::path& path, Prompts& prompts) {
    const CopyHead head = ReadHead(path.string());
    const bool wanted = prompts.ShowMessage(Offer(head.originalName)) == Answer::yes;
    const std::string copy = MarkAsOffered(path);
    if (!wanted)
        return false;
    ReadRecoveryCopy(project, copy, head.originalName, prompts);
    // The original may have been changed since the copy was kept: saving is to notice that.
    project.stampedFile = project.constructionFile;
    project.stamp = head.stamp;
    return true;
}

} // namespace

std::string RecoveryFolder() {
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state != nullptr && *state != 0)
        return std::string(state) + "/strativo";
    const char* home = std::getenv("HOME");
    return std::string(home != nullptr ? home : "") + "/.local/state/strativo";
}

std::string KeepRecoveryCopy(const Project& project, const std::string& folder) noexcept {
    try {
        if (!project.changed)
            return "";
        fs::create_directories(folder);
        const std::string path = PathOfCopy(folder);
        FileStamp stamp;
        const auto write = [&](const ByteSink& sink) {
            sink(HeadLine(project));
            WriteConstructionText(project, sink);
        };
        ReplaceFile(path, write, stamp);
        return path;
    } catch (const std::exception&) {
        return ""; // the program is ending: there is nobody left to tell
    }
}

void DropRecoveryCopy(const std::string& folder) noexcept {
    std::error_code error;
    fs::remove(PathOfCopy(folder), error);
}

bool OfferRecovery(Project& project, const std::string& folder, Prompts& prompts) {
    for (const fs::path& copy : WaitingCopies(folder)) {
        try {
            if (OfferCopy(project, copy, prompts))
                return true;
        } catch (const RuntimeError&) {
            MarkAsOffered(copy); // cannot be read, now or at the next start
        }
    }
    return false;
}

} // namespace strativo
