#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// The folders for copies of unsaved work, the preferred one first: below the user's state folder,
/// the runtime folder, and the folder for temporary files.
std::vector<std::string> RecoveryFolders();

/// Makes a folder that nobody else can look into, and the folders above it. False when the path
/// does not lead to a folder of this user's own; a link in its place is not followed.
bool MakePrivateFolder(const std::string& path);

/// Holds the lock on one program's copies, which is released however the program ends.
class CopyLock {
public:
    /// Null when another program holds the lock or the folder does not allow one.
    static std::shared_ptr<CopyLock> Take(const std::string& folder, const std::string& owner);
    /// Deletes the lock's file when the owner has no copies left.
    ~CopyLock();
    CopyLock(const CopyLock&) = delete;
    CopyLock& operator=(const CopyLock&) = delete;

    std::string PathOfCopy(int number) const;
    /// False when the lock's file has been deleted from outside.
    bool IsInItsFolder() const;

private:
    CopyLock(std::string ofFolder, std::string ofOwner, int lockedFile)
        : folder(std::move(ofFolder)), owner(std::move(ofOwner)), descriptor(lockedFile) {}

    std::string folder;
    std::string owner;
    int descriptor;
};

/// A copy that a program left behind. Nobody else touches it while the lock is held.
struct LeftCopy {
    std::string path;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::shared_ptr<CopyLock> lock;
};

/// The copies in these folders that no running program holds, the latest first.
std::vector<LeftCopy> FindLeftCopies(const std::vector<std::string>& folders);

/// Renames a refused copy, so that it is not offered again but kept for a while.
void RefuseCopy(const LeftCopy& copy);

/// Renames a copy that cannot be read, and returns its new path.
std::string SetDamagedCopyAside(const LeftCopy& copy);

/// Deletes refused copies except the latest 20, those older than 30 days, and half-written ones
/// that a killed program left more than a day ago.
void RemoveOldCopies(const std::vector<std::string>& folders, std::int64_t nowSeconds);

/// The copies that this program owns: that of the current project, and those it left of earlier
/// ones.
class RecoveryStore {
public:
    explicit RecoveryStore(std::vector<std::string> copyFolders)
        : folders(std::move(copyFolders)) {}

    /// Writes the current copy, whole or not at all, to the first folder that takes it. False when
    /// none does; an older copy then still exists.
    bool Write(std::string_view bytes);
    /// Deletes the current copy, because the work was saved or given up.
    void Remove();
    /// Leaves the current copy for the next start; the next Write makes a new one.
    void Leave();
    /// Makes a copy that another program left the current one.
    void Adopt(const LeftCopy& copy);
    bool HasCopy() const { return !current.empty(); }

    const std::vector<std::string>& Folders() const { return folders; }

private:
    std::string NewPath(const std::string& folder);

    std::vector<std::string> folders;
    std::vector<std::shared_ptr<CopyLock>> held;
    std::shared_ptr<CopyLock> own;
    std::string ownFolder; ///< the folder of the own lock
    std::string current;   ///< path of the current copy; "" when there is none
    int copies = 0;        ///< number of copies made so far
};

} // namespace strativo
