#include "files/FileAccess.h"
#include "files/FileRights.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace strativo {

namespace {

constexpr char temporaryName[] = ".strativo-";
constexpr char randomPart[] = "XXXXXX"; // the form that mkostemp requires

/// Whether anybody may create files in the folder, but only the owner of each may remove it.
bool IsOpenToAll(const struct stat& folder) {
    return (folder.st_mode & S_ISVTX) != 0 && (folder.st_mode & S_IWOTH) != 0;
}

std::string FolderToLookAt(const std::string& path) {
    const std::string folder = FolderOf(path);
    return folder.empty() ? "." : folder;
}

/// Another user's link in a folder open to all may lead anywhere, and may have been put there for
/// that.
void RefuseForeignLinks(const std::string& path) {
    auto end = std::string::size_type{0};
    while (end != std::string::npos) {
        end = path.find('/', end + 1);
        const std::string part = path.substr(0, end);
        struct stat link {};
        const bool exists = lstat(part.c_str(), &link) == 0;
        CheckCall(exists || errno == ENOENT);
        if (!exists || !S_ISLNK(link.st_mode) || link.st_uid == geteuid())
            continue;
        struct stat folder {};
        CheckCall(stat(FolderToLookAt(part).c_str(), &folder) == 0);
        if (IsOpenToAll(folder))
            throw WriteError("Another user's link in a folder open to all leads there");
    }
}

/// The file behind any symbolic links, whether it exists or not.
std::string FollowLinks(std::string path) {
    constexpr int maxLinks = 40;
    std::array<char, 4096> target{};
    for (int links = 0; links <= maxLinks; ++links) {
        RefuseForeignLinks(path);
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            // Not a link, or nothing there yet. Any other failure may hide a link.
            CheckCall(errno == EINVAL || errno == ENOENT);
            return path;
        }
        std::string next(target.data(), static_cast<std::size_t>(length));
        if (!next.starts_with('/'))
            next.insert(0, path, 0, path.rfind('/') + 1); // relative to the link's folder
        path = next;
    }
    throw WriteError(std::strerror(ELOOP));
}

/// Permissions for the new file: those of the old one, or nothing if there is none.
struct OldFile {
    bool exists = false;
    struct stat status {};
};

OldFile CheckOldFile(const std::string& path) {
    OldFile old;
    old.exists = stat(path.c_str(), &old.status) == 0;
    if (!old.exists) {
        CheckCall(errno == ENOENT);
        return old;
    }
    if (S_ISDIR(old.status.st_mode))
        throw WriteError(std::strerror(EISDIR));
    if (!S_ISREG(old.status.st_mode))
        throw WriteError("It is not a regular file");
    if ((old.status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        throw WriteError("The file is read-only");
    CheckCall(faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0);
    if (old.status.st_nlink > 1)
        throw WriteError(
            "The file has further hard links, which would go on naming the old content");
    return old;
}

/// A new file beside the old one, removed again unless it has taken the old one's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& folder)
        : path(folder + "/" + temporaryName + randomPart) {
        descriptor = mkostemp(path.data(), O_CLOEXEC);
        CheckCall(descriptor >= 0);
    }
    ~TemporaryFile() {
        if (descriptor >= 0)
            close(descriptor);
        if (!path.empty())
            unlink(path.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void Write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t count = write(descriptor, bytes.data(), bytes.size());
            if (count < 0 && errno == EINTR)
                continue;
            if (count == 0)
                errno = EIO; // otherwise a device that accepts nothing would be tried for ever
            CheckCall(count > 0);
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    void TakeRights(const OldFile& old, const std::string& target, const std::string& folder) {
        if (!old.exists)
            return GiveUsualRights(folder, descriptor);
        CarryAttributes(target, path);
        CarryRights(target, old.status, descriptor);
    }

    void Replace(const std::string& target, FileStamp& stamp) {
        struct stat status {};
        CheckCall(fstat(descriptor, &status) == 0);
        CheckCall(fsync(descriptor) == 0);
        const int closing = descriptor;
        descriptor = -1;
        CheckCall(close(closing) == 0);
        CheckCall(rename(path.c_str(), target.c_str()) == 0);
        path.clear();
        stamp = MakeStamp(status);
    }

private:
    std::string path;
    int descriptor = -1;
};

/// Until the folder is on the disk, a loss of power may bring the old file back. A folder that can
/// be written to but not read, or a file system without such a call, cannot do this; that counts as
/// success. Returns the system's message on failure, otherwise "".
std::string SyncFolder(int folder) {
    return fsync(folder) == 0 || errno == EINVAL ? "" : std::strerror(errno);
}

bool IsLeftover(int folder, const char* name) {
    constexpr time_t day = 24 * 60 * 60; // s
    struct stat status {};
    return std::string_view(name).starts_with(temporaryName)
           && std::strlen(name) == std::strlen(temporaryName) + std::strlen(randomPart)
           && fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode)
           && status.st_uid == geteuid() && std::time(nullptr) - status.st_mtime > day;
}

/// Removes files left here by saves of the same user that were killed more than a day ago. Takes
/// over the descriptor.
void RemoveLeftovers(int folder) {
    DIR* entries = fdopendir(folder);
    if (entries == nullptr) {
        close(folder);
        return;
    }
    while (const dirent* entry = readdir(entries))
        if (IsLeftover(folder, entry->d_name))
            unlinkat(folder, entry->d_name, 0);
    closedir(entries);
}

/// Brings the folder's new entry to the disk and removes leftovers from the folder.
std::string FinishFolder(const std::string& path) {
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return errno == EACCES ? "" : std::strerror(errno);
    std::string failure = SyncFolder(folder);
    RemoveLeftovers(folder);
    return failure;
}

} // namespace

std::string ReplaceFile(const std::string& path, const ByteSource& source, FileStamp& stamp) {
    const std::string target = FollowLinks(path);
    const OldFile old = CheckOldFile(target);
    const std::string folder = FolderToLookAt(target);
    TemporaryFile file(folder);
    source([&](std::string_view piece) { file.Write(piece); });
    file.TakeRights(old, target, folder);
    file.Replace(target, stamp);
    return FinishFolder(folder);
}

void ReplacePrivateFile(const std::string& path, std::string_view bytes) {
    const std::string folder = FolderOf(path);
    TemporaryFile file(folder); // created with rights for its user only
    file.Write(bytes);
    FileStamp stamp;
    file.Replace(path, stamp);
    const std::string failure = FinishFolder(folder);
    if (!failure.empty())
        throw WriteError(failure);
}

} // namespace strativo
