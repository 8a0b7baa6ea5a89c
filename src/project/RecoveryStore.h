#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// The program's folder for what it remembers: $XDG_STATE_HOME/strativo, else
/// ~/.local/state/strativo.
std::string StateFolder();

/// The folders for copies of unsaved work, the preferred one first: below the user's state folder,
/// the runtime folder, and the folder for temporary files.
std::vector<std::string> RecoveryFolders();

/// Makes a folder that nobody else can look into, with the folders above it. False when it is none
/// of this user's own, or no folder at all; a link in its place is not followed.
bool MakePrivateFolder(const std::string& path);

/// Holds the lock of one program's copies. A program that ends, however it does, lets go of it.
class CopyLock {
public:
    /// Null when another program holds the lock, or when the folder cannot have one.
    static std::shared_ptr<CopyLock> Take(const std::string& folder, const std::string& owner);
    /// The lock's file goes with the owner's last copy.
    ~CopyLock();
    CopyLock(const CopyLock&) = delete;
    CopyLock& operator=(const CopyLock&) = delete;

    std::string PathOfCopy(int number) const;
    /// False when somebody has cleared the folder meanwhile.
    bool IsInItsFolder() const;

private:
    CopyLock(std::string ofFolder, std::string ofOwner, int lockedFile)
        : folder(std::move(ofFolder)), owner(std::move(ofOwner)), descriptor(lockedFile) {}

    std::string folder;
    std::string owner;
    int descriptor;
};

/// A copy that a program left when it ended. Nobody else touches it while the lock is held.
struct LeftCopy {
    std::string path;
    std::int64_t modified = 0; ///< nanoseconds since 1970
    std::shared_ptr<CopyLock> lock;
};

/// The copies in these folders that no running program holds, the latest first.
std::vector<LeftCopy> FindLeftCopies(const std::vector<std::string>& folders);

/// The copy is not offered again; it stays for a while under another name.
void RefuseCopy(const LeftCopy& copy);

/// The copy cannot be read and stays under another name, which is returned.
std::string SetDamagedCopyAside(const LeftCopy& copy);

/// Removes refused copies beyond the latest 20 or older than 30 days, and what killed programs
/// left half-written a day ago.
void RemoveOldCopies(const std::vector<std::string>& folders, std::int64_t nowSeconds);

/// The copies of this program: one of the current project, and those left of earlier ones.
class RecoveryStore {
public:
    explicit RecoveryStore(std::vector<std::string> copyFolders)
        : folders(std::move(copyFolders)) {}

    /// Makes or replaces the current copy, whole or not at all, in the first folder that takes it.
    /// False when none does; an older copy is still there then.
    bool Write(std::string_view bytes);
    /// The work was saved, or given up.
    void Remove();
    /// The copy stays for the next start; the next one written is another.
    void Leave();
    /// A copy that another program left becomes the current one.
    void Adopt(const LeftCopy& copy);
    bool HasCopy() const { return !current.empty(); }

    const std::vector<std::string>& Folders() const { return folders; }

private:
    std::string NewPath(const std::string& folder);

    std::vector<std::string> folders;
    std::vector<std::shared_ptr<CopyLock>> held;
    std::shared_ptr<CopyLock> own;
    std::string ownFolder; ///< that the own lock is in
    std::string current;   ///< path of the copy; "" none
    int copies = 0;        ///< counts the copies made
};

} // namespace strativo
