#include "project/RecoveryStore.h"

#include "files/FileAccess.h"
#include "project/UserFolders.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace strativo {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view copyEnd = ".copy";
constexpr std::string_view lockEnd = ".lock";
constexpr std::string_view refusedEnd = ".refused";
constexpr std::string_view damagedEnd = ".damaged";
constexpr std::string_view halfWrittenStart = ".strativo-";

/// The status of the path itself, without following links; false when there is nothing or it is out
/// of reach.
bool Look(const std::string& path, struct stat& status) {
    return lstat(path.c_str(), &status) == 0;
}

bool IsOwnFile(const std::string& path, struct stat& status) {
    return Look(path, status) && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

/// Also withdraws other users' access. Works on the opened folder, so that nobody can swap it in
/// between.
bool IsOwnFolder(const std::string& path) {
    constexpr mode_t ownRights = 0700;
    const int descriptor = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    struct stat status {};
    const bool isOwn =
        fstat(descriptor, &status) == 0 && status.st_uid == geteuid()
        && ((status.st_mode & ACCESSPERMS) == ownRights || fchmod(descriptor, ownRights) == 0);
    close(descriptor);
    return isOwn;
}

/// Makes a folder of the user's own where there is none. An administrator makes none among the
/// folders of another user, who could not use it.
void MakeFolder(const std::string& path) {
    struct stat above {};
    const bool isForeign = geteuid() == 0
                           && stat(path.substr(0, path.rfind('/') + 1).c_str(), &above) == 0
                           && above.st_uid != 0;
    if (!isForeign && mkdir(path.c_str(), S_IRWXU) == 0)
        chmod(path.c_str(), S_IRWXU); // whatever the mask took away
}

/// The file names in a folder that belongs to this user; none when there is no such folder.
std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    if (!IsOwnFolder(folder))
        return names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        names.push_back(entry->path().filename().string());
    return names;
}

/// The owner is what stands before the first point of "OWNER.NUMBER.copy" and "OWNER.lock".
std::string OwnerOf(const std::string& name) {
    return name.substr(0, name.find('.'));
}

std::string TimeAndProcess() {
    char time[32] = {};
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::strftime(time, sizeof time, "%Y-%m-%d-%H%M%S-", &parts);
    return time + std::to_string(getpid());
}

std::int64_t ModifiedAt(const struct stat& status) {
    return MakeStamp(status).modified;
}

/// A lock of a new owner's. Programs in two containers with one home can have the same number in
/// the same second; null when the folder does not allow a lock.
std::shared_ptr<CopyLock> TakeNewLock(const std::string& folder) {
    constexpr int mostNamesakes = 9;
    const std::string owner = TimeAndProcess();
    std::shared_ptr<CopyLock> lock = CopyLock::Take(folder, owner);
    for (int namesake = 1; lock == nullptr && namesake <= mostNamesakes; ++namesake)
        lock = CopyLock::Take(folder, owner + "-" + std::to_string(namesake));
    return lock;
}

/// The new path, or the old one if renaming fails.
std::string Rename(const std::string& path, std::string_view end) {
    std::string renamed = path.substr(0, path.size() - copyEnd.size()).append(end);
    return std::rename(path.c_str(), renamed.c_str()) == 0 ? renamed : path;
}

void AddLeftCopies(const std::string& folder, std::vector<LeftCopy>& found) {
    std::vector<std::string> names = NamesIn(folder);
    std::erase_if(names, [](const std::string& name) {
        return !name.ends_with(copyEnd) && !name.ends_with(lockEnd);
    });
    std::sort(names.begin(), names.end());
    std::string owner;
    std::shared_ptr<CopyLock> lock;
    for (const std::string& name : names) {
        if (lock == nullptr || OwnerOf(name) != owner) {
            owner = OwnerOf(name);
            lock.reset();
            lock = CopyLock::Take(folder, owner);
        }
        const std::string path = folder + "/" + name;
        struct stat status {};
        if (lock != nullptr && name.ends_with(copyEnd) && IsOwnFile(path, status))
            found.push_back({path, ModifiedAt(status), lock});
    }
}

} // namespace

std::vector<std::string> RecoveryFolders() {
    std::vector<std::string> folders;
    if (const std::string state = StateFolder(); !state.empty())
        folders.push_back(state + "/recovery");
    if (const std::string runtime = FolderFromEnvironment("XDG_RUNTIME_DIR"); !runtime.empty())
        folders.push_back(runtime + "/strativo-recovery");
    std::string temporary = FolderFromEnvironment("TMPDIR");
    if (temporary.empty())
        temporary = "/tmp";
    folders.push_back(temporary + "/strativo-recovery-" + std::to_string(geteuid()));
    return folders;
}

bool MakePrivateFolder(const std::string& path) {
    for (auto slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1))
        MakeFolder(path.substr(0, slash));
    MakeFolder(path);
    return IsOwnFolder(path) && access(path.c_str(), W_OK) == 0;
}

std::shared_ptr<CopyLock> CopyLock::Take(const std::string& folder, const std::string& owner) {
    const std::string path = folder + "/" + owner + std::string(lockEnd);
    const int file =
        open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return nullptr;
    // Whoever held the lock a moment ago may have deleted the file that was opened here.
    struct stat status {};
    if (flock(file, LOCK_EX | LOCK_NB) == 0 && fstat(file, &status) == 0 && status.st_nlink == 1
        && status.st_uid == geteuid())
        return std::shared_ptr<CopyLock>(new CopyLock(folder, owner, file));
    close(file);
    return nullptr;
}

CopyLock::~CopyLock() {
    const std::vector<std::string> names = NamesIn(folder);
    const bool isLast = std::none_of(names.begin(), names.end(), [&](const std::string& name) {
        return name.ends_with(copyEnd) && OwnerOf(name) == owner;
    });
    if (isLast)
        unlink((folder + "/" + owner + std::string(lockEnd)).c_str());
    close(descriptor);
}

bool CopyLock::IsInItsFolder() const {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && status.st_nlink == 1;
}

std::string CopyLock::PathOfCopy(int number) const {
    return folder + "/" + owner + "." + std::to_string(number) + std::string(copyEnd);
}

std::vector<LeftCopy> FindLeftCopies(const std::vector<std::string>& folders) {
    std::vector<LeftCopy> found;
    for (const std::string& folder : folders)
        AddLeftCopies(folder, found);
    std::sort(found.begin(), found.end(), [](const LeftCopy& left, const LeftCopy& right) {
        return left.modified != right.modified ? left.modified > right.modified
                                               : left.path > right.path;
    });
    return found;
}

void RefuseCopy(const LeftCopy& copy) {
    // Refused copies are kept for some weeks, counted from now.
    utimensat(AT_FDCWD, copy.path.c_str(), nullptr, AT_SYMLINK_NOFOLLOW);
    Rename(copy.path, refusedEnd);
}

std::string SetDamagedCopyAside(const LeftCopy& copy) {
    return Rename(copy.path, damagedEnd);
}

void RemoveOldCopies(const std::vector<std::string>& folders, std::int64_t nowSeconds) {
    constexpr std::int64_t second = 1000000000;
    constexpr std::int64_t day = 24 * 60 * 60 * second;
    constexpr std::int64_t longestRefused = 30 * day;
    constexpr std::size_t mostRefused = 20;
    const std::int64_t now = nowSeconds * second;
    std::vector<std::pair<std::int64_t, std::string>> refused; // age and path
    for (const std::string& folder : folders)
        for (const std::string& name : NamesIn(folder)) {
            const std::string path = folder + "/" + name;
            struct stat status {};
            if (!IsOwnFile(path, status))
                continue;
            const std::int64_t age = now - ModifiedAt(status);
            if (name.starts_with(halfWrittenStart) && age > day)
                unlink(path.c_str());
            if (name.ends_with(refusedEnd))
                refused.emplace_back(age, path);
        }
    std::sort(refused.begin(), refused.end());
    for (std::size_t i = 0; i < refused.size(); ++i)
        if (i >= mostRefused || refused[i].first > longestRefused)
            unlink(refused[i].second.c_str());
}

/// A path for the next copy in the folder; "" when the folder cannot be used.
std::string RecoveryStore::NewPath(const std::string& folder) {
    if (!MakePrivateFolder(folder))
        return "";
    if (own == nullptr || ownFolder != folder || !own->IsInItsFolder()) {
        std::shared_ptr<CopyLock> lock = TakeNewLock(folder);
        if (lock == nullptr)
            return "";
        own = lock;
        ownFolder = folder;
        held.push_back(std::move(lock));
    }
    // In a container, a process can have the same number as an earlier one and so the same owner's
    // name.
    struct stat status {};
    do
        ++copies;
    while (Look(own->PathOfCopy(copies), status));
    return own->PathOfCopy(copies);
}

bool RecoveryStore::Write(std::string_view bytes) {
    const auto succeeds = [&](const std::string& path) {
        try {
            ReplacePrivateFile(path, bytes);
            return true;
        } catch (const WriteError&) {
            return false;
        }
    };
    if (HasCopy() && succeeds(current))
        return true;
    for (const std::string& folder : folders) {
        const std::string path = NewPath(folder);
        if (path.empty() || !succeeds(path))
            continue;
        Remove(); // the older copy, in a folder that can no longer be written to
        current = path;
        return true;
    }
    return false;
}

void RecoveryStore::Remove() {
    if (HasCopy())
        unlink(current.c_str());
    current.clear();
}

void RecoveryStore::Leave() {
    current.clear();
}

void RecoveryStore::Adopt(const LeftCopy& copy) {
    held.push_back(copy.lock);
    current = copy.path;
}

} // namespace strativo
