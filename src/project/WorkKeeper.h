#pragma once

#include "files/ProjectSnapshot.h"
#include "project/CopySchedule.h"
#include "project/RecoveryStore.h"

#include <future>
#include <optional>
#include <string>

namespace strativo {

/// What the user is to be told about the copies.
enum class KeepNotice {
    none,
    notKept,   ///< no folder takes a copy
    left,      ///< the work on a project that was replaced waits for the next start
    onlySaveAs ///< the edit does not count as a change, so that only Save as... keeps it
};

/// The words for it; "" for none.
std::string TextOf(KeepNotice notice);

/// Keeps a copy of the project whenever its content differs from its file: written some time after
/// an edit, removed once the work is saved or given up. Copies are written beside the program's own
/// thread, which waits for nothing but the making of their bytes.
class WorkKeeper {
public:
    WorkKeeper(std::vector<std::string> folders, KeepIntervals intervals)
        : store(std::move(folders)), schedule(intervals) {}

    /// To be called soon after every action: notices edits, and writes or removes the copy. Says
    /// after what time it wants to be called again; nothing when not before the next action.
    std::optional<std::chrono::milliseconds> Look(const Project& project,
                                                  CopySchedule::Clock::time_point now);
    /// The project is not what its file holds.
    bool IsUnsaved(const Project& project) const;
    /// The content was saved or replaced, and has not been looked at since.
    bool IsUnsettled(const Project& project) const;

    /// Before an action that may replace the project: whether the user is asked about its changes
    /// by then. If not, its copy stays for the next start.
    void ExpectReplacement(const Project& project, bool userIsAsked);
    void EndExpectation() { userWasAsked = false; }

    /// Before the program may be ended by others: the copy is up to date afterwards.
    void KeepNow(const Project& project);
    /// The user has given the work up.
    void GiveUp();

    /// The project was read from a copy, which stays until the work is saved or given up.
    void TakeOver(const LeftCopy& copy, const SnapshotHead& head, const Project& project);

    /// There is a copy of the project as it is or was, and no other is being written.
    bool HasCopy() const { return !IsWriting() && store.HasCopy(); }
    /// What has come up since the last call.
    KeepNotice TakeNotice();
    const std::vector<std::string>& Folders() const { return store.Folders(); }

private:
    void Settle(const Project& project);
    void NoticeEdit(const Project& project, CopySchedule::Clock::time_point now);
    void StartIfDue(const Project& project);
    void StartCopy(const Project& project);
    void FinishCopy();
    bool IsWriting() const;
    SnapshotHead HeadOf(const Project& project) const;

    RecoveryStore store;
    CopySchedule schedule;
    std::uint64_t saved = 0;   ///< digest of the content of the file
    std::uint64_t seen = 0;    ///< of the project when it was last looked at
    std::uint64_t written = 0; ///< of the copy
    unsigned replacedSeen = 0;
    unsigned savedSeen = 0;
    bool userWasAsked = false;
    bool isFailing = false; ///< the last copy could not be written
    KeepNotice notice = KeepNotice::none;
    std::future<bool> writing; ///< uses the store, so it is the last to be made and the first to go
};

} // namespace strativo
