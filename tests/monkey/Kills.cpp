#include "Kills.h"

#include "Dice.h"
#include "EditLog.h"
#include "files/FileAccess.h"
#include "files/ProjectSnapshot.h"
#include "project/RecoveryStore.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace strativo::monkey {

namespace {

namespace fs = std::filesystem;

constexpr int mostEndedBefore = 20;

/// What became of all kills.
struct Tally {
    int kills = 0;
    int withWork = 0;                 ///< there were unsaved edits at that moment
    int unreadable = 0;               ///< copies
    int tooMuch = 0;                  ///< kills that cost more than they may
    int endedBefore = 0;              ///< users whom a check of theirs ended before the kill
    std::vector<std::int64_t> losses; ///< ns between the first edit lost and the kill
};

/// The folders of copies of everybody who worked here.
std::vector<std::string> CopyFolders(const std::string& folder) {
    std::vector<std::string> folders;
    for (const auto& entry : fs::directory_iterator(folder)) {
        folders.push_back(entry.path().string());
        folders.push_back(entry.path().string() + "/state/strativo/recovery");
    }
    return folders;
}

std::vector<std::uint64_t> LeftContents(const std::string& folder, Tally& tally) {
    std::vector<std::uint64_t> contents;
    for (const LeftCopy& copy : FindLeftCopies(CopyFolders(folder))) {
        try {
            Project project;
            ReadSnapshot(ReadFileBytes(copy.path), project);
            contents.push_back(ContentDigest(project));
        } catch (const std::exception& error) {
            std::cerr << copy.path << ": " << error.what() << '\n';
            ++tally.unreadable;
        }
    }
    return contents;
}

/// The time from the first edit that no copy holds to the kill; 0 when none is lost.
std::int64_t Loss(const std::vector<LoggedContent>& log, const std::vector<std::uint64_t>& kept,
                  std::int64_t killed) {
    std::int64_t firstLost = killed;
    for (auto line = log.rbegin(); line != log.rend(); ++line) {
        const bool isKept = std::find(kept.begin(), kept.end(), line->content) != kept.end();
        if (!line->isUnsaved || isKept)
            break;
        firstLost = line->time;
    }
    return killed - firstLost;
}

void Judge(const KillOptions& options, const std::string& folder, std::int64_t killed,
           Tally& tally) {
    constexpr std::int64_t millisecond = 1000000;
    const std::vector<LoggedContent> log = EditLog::Read(LogIn(folder));
    const std::vector<std::uint64_t> kept = LeftContents(folder, tally);
    ++tally.kills;
    if (log.empty() || !log.back().isUnsaved)
        return;
    ++tally.withWork;
    const std::int64_t loss = Loss(log, kept, killed);
    tally.losses.push_back(loss);
    if (loss <= options.afterFirst * millisecond)
        return;
    ++tally.tooMuch;
    std::cerr << "kill " << tally.kills << ": " << loss / millisecond << " ms of edits lost, "
              << kept.size() << " copies, " << log.size() << " contents seen\n";
    for (const LoggedContent& line : log)
        std::cerr << "  " << (line.time - killed) / millisecond << " ms: content " << line.content
                  << (line.isUnsaved ? ", unsaved\n" : "\n");
}

/// The user works for a while from his first edit on, and is killed. Nothing when he ended by
/// himself.
std::optional<std::int64_t> LetWorkAndKill(pid_t user, const std::string& folder,
                                           std::chrono::milliseconds span) {
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (EditLog::Read(LogIn(folder)).empty() && std::chrono::steady_clock::now() < patience)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    std::this_thread::sleep_for(span);
    const std::int64_t killed = SteadyTime();
    kill(user, SIGKILL);
    int status = 0;
    waitpid(user, &status, 0);
    const bool wasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    return wasKilled ? std::optional(killed) : std::nullopt;
}

void Print(const KillOptions& options, Tally& tally) {
    std::sort(tally.losses.begin(), tally.losses.end());
    const auto part = [&](double share) {
        if (tally.losses.empty())
            return 0.0;
        const auto last = static_cast<double>(tally.losses.size() - 1);
        return static_cast<double>(tally.losses[static_cast<std::size_t>(share * last)]) / 1e6;
    };
    std::cout << tally.kills << " kills with intervals of " << options.afterLast << " and "
              << options.afterFirst << " ms; unsaved work at " << tally.withWork << " of them\n"
              << "copies unreadable: " << tally.unreadable << "\nmore than " << options.afterFirst
              << " ms of edits lost: " << tally.tooMuch << "\nlost: median " << part(0.5)
              << " ms, 99 % " << part(0.99) << " ms, at most " << part(1)
              << " ms\nusers ended by a check of theirs: " << tally.endedBefore << '\n';
}

} // namespace

std::string LogIn(const std::string& folder) {
    return folder + "/edits.log";
}

int KillRandomly(const KillOptions& options,
                 const std::function<void(unsigned, const std::string&)>& user) {
    Dice dice(options.seed);
    Tally tally;
    const std::string intervals =
        std::to_string(options.afterLast) + "," + std::to_string(options.afterFirst);
    setenv("STRATIVO_KEEP_INTERVALS", intervals.c_str(), 1);
    for (unsigned seed = options.seed; tally.kills < options.kills; ++seed) {
        std::string folder = (fs::temp_directory_path() / "strativo-kill-XXXXXX").string();
        if (mkdtemp(folder.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        const std::chrono::milliseconds span(dice.Below(3 * options.afterFirst));
        const pid_t child = fork();
        if (child == 0) {
            user(seed, folder);
            _exit(0);
        }
        if (const auto killed = LetWorkAndKill(child, folder, span))
            Judge(options, folder, *killed, tally);
        else if (++tally.endedBefore > mostEndedBefore)
            throw std::runtime_error("too many users ended by themselves");
        fs::remove_all(folder);
    }
    Print(options, tally);
    return tally.tooMuch + tally.unreadable + tally.endedBefore;
}

} // namespace strativo::monkey
