#include "project/WorkKeeper.h"

#include "files/FileAccess.h"

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

namespace strativo {

namespace {

constexpr std::chrono::milliseconds soon(100);

/// A project without a file, constructions and glass types has nothing to lose, even with libraries
/// loaded.
bool HasWork(const Project& project) {
    const auto isNamed = [](const auto& type) { return !type.name.empty(); };
    return !project.constructionFile.empty() || project.constructionCount > 0
           || std::any_of(project.glassTypes.begin(), project.glassTypes.end(), isNamed)
           || std::any_of(project.glassTypes2D.begin(), project.glassTypes2D.end(), isNamed);
}

} // namespace

WorkKeeper::WorkKeeper(std::vector<std::string> folders, KeepIntervals intervals)
    : store(std::move(folders)), schedule(intervals) {
    // Taken once: the folder may be gone by the time of a copy.
    std::error_code error;
    startFolder = std::filesystem::current_path(error);
}

std::string WorkKeeper::Absolute(const std::string& path) const {
    return path.empty() ? "" : (startFolder / path).string();
}

/// The path where the library was found, or its name as given if it was not.
std::string WorkKeeper::LibraryPath(const Project& project, const std::string& name) const {
    if (name.empty() || name == singleBlank)
        return "";
    try {
        return Absolute(FindFile(name, FolderOf(project.constructionFile)));
    } catch (const RuntimeError&) {
        return name;
    }
}

std::string TextOf(KeepNotice notice) {
    switch (notice) {
    case KeepNotice::notKept:
        return "Unsaved work is not being kept: no folder takes a copy of it";
    case KeepNotice::left:
        return "The work that was not saved is kept, and offered at the next start";
    case KeepNotice::onlySaveAs:
        return "This does not count as a change: Save construction file as... keeps it";
    default:
        return "";
    }
}

bool WorkKeeper::IsUnsettled(const Project& project) const {
    return project.contentsReplaced != replacedSeen || project.contentsSaved != savedSeen;
}

bool WorkKeeper::IsUnsaved(const Project& project) const {
    return !project.replacingContent && !IsUnsettled(project) && HasWork(project)
           && ContentDigest(project) != saved;
}

std::optional<std::chrono::milliseconds> WorkKeeper::Look(const Project& project,
                                                          CopySchedule::Clock::time_point now) {
    if (writing.valid() && !IsWriting())
        FinishCopy();
    if (project.replacingContent)
        return soon;
    LookAtContent(project, now);
    if (seen == saved) {
        GiveUp();
        return std::nullopt;
    }
    if (isFailing && !schedule.Wait(now))
        schedule.Edited(now); // try again later
    const auto wait = schedule.Wait(now);
    if (wait && wait->count() == 0 && !IsWriting()) {
        StartCopy(project);
        return soon;
    }
    return IsWriting() ? soon : wait;
}

void WorkKeeper::LookAtContent(const Project& project, CopySchedule::Clock::time_point now) {
    if (IsUnsettled(project))
        Settle(project);
    else
        NoticeEdit(project, now);
}

void WorkKeeper::NoticeEdit(const Project& project, CopySchedule::Clock::time_point now) {
    const std::uint64_t digest = HasWork(project) ? ContentDigest(project) : saved;
    if (digest == seen)
        return;
    seen = digest;
    schedule.Edited(now);
    if (seen != saved && !project.changed)
        notice = KeepNotice::onlySaveAs;
}

void WorkKeeper::Settle(const Project& project) {
    FinishCopy();
    const bool isReplaced = project.contentsReplaced != replacedSeen;
    if (isReplaced && !userWasAsked && store.HasCopy()) {
        store.Leave();
        notice = KeepNotice::left;
    }
    store.Remove();
    schedule.Settled();
    saved = ContentDigest(project);
    seen = saved;
    replacedSeen = project.contentsReplaced;
    savedSeen = project.contentsSaved;
}

void WorkKeeper::ExpectReplacement(const Project& project, bool userIsAsked) {
    StartIfDue(project);
    userWasAsked = userIsAsked;
}

void WorkKeeper::KeepNow(const Project& project) {
    StartIfDue(project);
    FinishCopy();
}

/// Makes sure that the copy is up to date or being written.
void WorkKeeper::StartIfDue(const Project& project) {
    if (project.replacingContent)
        return;
    LookAtContent(project, CopySchedule::Clock::now());
    FinishCopy();
    if (seen == saved)
        GiveUp();
    else if (!store.HasCopy() || written != seen)
        StartCopy(project);
}

void WorkKeeper::GiveUp() {
    if (!store.HasCopy() && !writing.valid())
        return schedule.Settled();
    FinishCopy();
    store.Remove();
    schedule.Settled();
}

void WorkKeeper::TakeOver(const LeftCopy& copy, const SnapshotHead& head, const Project& project) {
    FinishCopy();
    store.Adopt(copy);
    saved = head.savedContent;
    seen = ContentDigest(project);
    written = seen;
    replacedSeen = project.contentsReplaced;
    savedSeen = project.contentsSaved;
    schedule.Settled();
}

KeepNotice WorkKeeper::TakeNotice() {
    return std::exchange(notice, KeepNotice::none);
}

SnapshotHead WorkKeeper::HeadOf(const Project& project) const {
    SnapshotHead head;
    head.time = std::time(nullptr);
    head.originalPath = Absolute(project.constructionFile);
    head.standardLibraryPath = LibraryPath(project, project.standardLibraryFile);
    head.userLibraryPath = LibraryPath(project, project.userLibraryFile);
    head.savedContent = saved;
    return head;
}

void WorkKeeper::StartCopy(const Project& project) {
    schedule.Settled();
    written = seen;
    const auto bytes = std::make_shared<std::string>();
    const auto write = [this, bytes] {
        SealSnapshot(*bytes);
        return store.Write(*bytes);
    };
    try {
        *bytes = WriteUnsealedSnapshot(project, HeadOf(project));
    } catch (const std::bad_alloc&) {
        return NoteOutcome(false);
    }
    try {
        writing = std::async(std::launch::async, write);
    } catch (const std::system_error&) {
        NoteOutcome(write()); // no thread can be started, so the user waits for it
    }
}

bool WorkKeeper::IsWriting() const {
    return writing.valid()
           && writing.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void WorkKeeper::FinishCopy() {
    if (writing.valid())
        NoteOutcome(writing.get());
}

void WorkKeeper::NoteOutcome(bool succeeded) {
    const bool failed = !succeeded;
    if (failed && !isFailing)
        notice = KeepNotice::notKept;
    isFailing = failed;
    if (failed)
        written = saved; // what is on the disk is older, or nothing
}

} // namespace strativo
