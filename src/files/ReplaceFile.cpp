#include "files/FileAccess.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace strativo {

namespace {

[[noreturn]] void ThrowSystemError() {
    throw WriteError(std::strerror(errno));
}

void Check(bool ok) {
    if (!ok)
        ThrowSystemError();
}

/// The file behind any symbolic links, whether it exists or not.
std::string FollowLinks(std::string path) {
    constexpr int maxLinks = 40;
    std::array<char, 4096> target{};
    for (int links = 0; links < maxLinks; ++links) {
        const ssize_t length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            // Not a link, or nothing there yet; after any other failure it may be a link.
            Check(errno == EINVAL || errno == ENOENT);
            return path;
        }
        std::string next(target.data(), static_cast<std::size_t>(length));
        if (!next.starts_with('/'))
            next.insert(0, path, 0, path.rfind('/') + 1); // it counts from the link's folder
        path = next;
    }
    errno = ELOOP;
    ThrowSystemError();
}

/// Permissions for the new file: those of the old one, or none where there is no old one.
struct OldFile {
    bool exists = false;
    struct stat status {};
};

OldFile CheckOldFile(const std::string& path) {
    OldFile old;
    old.exists = stat(path.c_str(), &old.status) == 0;
    if (!old.exists) {
        Check(errno == ENOENT);
        return old;
    }
    if (S_ISDIR(old.status.st_mode))
        throw WriteError(std::strerror(EISDIR));
    if (!S_ISREG(old.status.st_mode))
        throw WriteError("It is not a regular file");
    if ((old.status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        throw WriteError("The file is read-only");
    Check(faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0);
    if (old.status.st_nlink > 1)
        throw WriteError(
            "The file has further hard links, which would go on naming the old content");
    return old;
}

/// A new file beside the old one; removed again unless it took the old one's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& folder) : path(folder + "/.strativo-XXXXXX") {
        descriptor = mkostemp(path.data(), O_CLOEXEC);
        Check(descriptor >= 0);
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
                errno = EIO; // a device that takes nothing would be asked for ever
            Check(count > 0);
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    void TakePermissions(const OldFile& old) {
        constexpr mode_t permissionBits = 0777;
        constexpr uid_t anyOwner = static_cast<uid_t>(-1);
        if (!old.exists) {
            const mode_t mask = umask(0);
            umask(mask);
            Check(fchmod(descriptor, 0666 & ~mask) == 0);
            return;
        }
        // Only a privileged user can keep the owner; the group stays wherever that is allowed.
        const bool groupKept = fchown(descriptor, old.status.st_uid, old.status.st_gid) == 0
                               || fchown(descriptor, anyOwner, old.status.st_gid) == 0;
        const mode_t mode = old.status.st_mode & permissionBits;
        Check(fchmod(descriptor, groupKept ? mode : mode & ~S_IRWXG) == 0);
    }

    void Replace(const std::string& target, FileStamp& stamp) {
        struct stat status {};
        Check(fstat(descriptor, &status) == 0);
        Check(fsync(descriptor) == 0);
        const int closing = descriptor;
        descriptor = -1;
        Check(close(closing) == 0);
        Check(rename(path.c_str(), target.c_str()) == 0);
        path.clear();
        stamp = MakeStamp(status);
    }

private:
    std::string path;
    int descriptor = -1;
};

/// Brings the folder's new entry to the disk. A folder that may be written to but not read, and a
/// file system without such a call, cannot be asked for it; any other failure is one of saving,
/// since the old entry may come back after a loss of power.
void SyncFolder(const std::string& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0 && errno == EACCES)
        return;
    Check(descriptor >= 0);
    const bool synced = fsync(descriptor) == 0 || errno == EINVAL;
    const int systemError = errno;
    close(descriptor);
    errno = systemError;
    Check(synced);
}

} // namespace

void ReplaceFile(const std::string& path, const ByteSource& source, FileStamp& stamp) {
    const std::string target = FollowLinks(path);
    const OldFile old = CheckOldFile(target);
    std::string folder = FolderOf(target);
    if (folder.empty())
        folder = ".";
    TemporaryFile file(folder);
    source([&](std::string_view piece) { file.Write(piece); });
    file.TakePermissions(old);
    file.Replace(target, stamp);
    SyncFolder(folder);
}

void ReplacePrivateFile(const std::string& path, std::string_view bytes) {
    const std::string folder = FolderOf(path);
    TemporaryFile file(folder); // it is made with its user's rights only
    file.Write(bytes);
    FileStamp stamp;
    file.Replace(path, stamp);
    SyncFolder(folder);
}

} // namespace strativo
