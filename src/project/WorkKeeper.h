#pragma once

#include "files/ProjectSnapshot.h"
#include "project/CopySchedule.h"
#include "project/RecoveryStore.h"

#include <filesystem>
#include <future>
#include <optional>
#include <string>

namespace strativo {

/// What the user should be told about the copies.
enum class KeepNotice {
    none,
    notKept,   ///< no folder could be written to
    left,      ///< the work on the replaced project waits for the next start
    onlySaveAs ///< the edit does not count as a change, so that only Save as... keeps it
};

/// The notice in words; "" for none.
std::string TextOf(KeepNotice notice);

/// Keeps a recovery copy of the project whenever its content differs from its file. The copy is
/// written some time after an edit and removed once the work is saved or given up. The program's
/// own thread only makes the bytes; another one writes them.
class WorkKeeper {
public:
    WorkKeeper(std::vector<std::string> folders, KeepIntervals intervals);

    /// To be called soon after every action: notices edits, and writes or removes the copy. Returns
    /// the time after which it should be called again, or nothing when the next action will do.
    std::optional<std::chrono::milliseconds> Look(const Project& project,
                                                  CopySchedule::Clock::time_point now);
    /// Whether the project differs from its file.
    bool IsUnsaved(const Project& project) const;
    /// Whether the content was saved or replaced and no Look has followed yet.
    bool IsUnsettled(const Project& project) const;

    /// To be called before an action that may replace the project, with whether the user will be
    /// asked about unsaved changes. If not, the copy stays for the next start.
    void ExpectReplacement(const Project& project, bool userIsAsked);
    void EndExpectation() { userWasAsked = false; }

    /// Brings the copy up to date at once, for the case that the program is about to be ended from
    /// outside.
    void KeepNow(const Project& project);
    /// Removes the copy, because the user has given up the work.
    void GiveUp();

    /// Takes over the copy from which the project was read; it stays until the work is saved or
    /// given up.
    void TakeOver(const LeftCopy& copy, const SnapshotHead& head, const Project& project);

    /// What has come up since the last call.
    KeepNotice TakeNotice();
    const std::vector<std::string>& Folders() const { return store.Folders(); }

private:
    void Settle(const Project& project);
    void LookAtContent(const Project& project, CopySchedule::Clock::time_point now);
    void NoticeEdit(const Project& project, CopySchedule::Clock::time_point now);
    void StartIfDue(const Project& project);
    void StartCopy(const Project& project);
    void FinishCopy();
    void NoteOutcome(bool succeeded);
    bool IsWriting() const;
    SnapshotHead HeadOf(const Project& project) const;
    std::string Absolute(const std::string& path) const;
    std::string LibraryPath(const Project& project, const std::string& name) const;

    std::filesystem::path startFolder; ///< to which the project's paths may be relative
    RecoveryStore store;
    CopySchedule schedule;
    std::uint64_t saved = 0;   ///< digest of the content in the file
    std::uint64_t seen = 0;    ///< digest of the project when last looked at
    std::uint64_t written = 0; ///< digest of the content in the copy
    unsigned replacedSeen = 0;
    unsigned savedSeen = 0;
    bool userWasAsked = false;
    bool isFailing = false; ///< the last copy could not be written
    KeepNotice notice = KeepNotice::none;
    std::future<bool> writing; ///< uses the store, so it must be declared after it
};

} // namespace strativo
