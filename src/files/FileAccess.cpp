#include "files/FileAccess.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace strativo {

namespace {

/// An open file descriptor, closed at the end of the scope.
class OpenFile {
public:
    explicit OpenFile(const std::string& path)
        : descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {
        if (descriptor < 0)
            throw RuntimeError(OpenError(path));
    }
    ~OpenFile() { close(descriptor); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int Descriptor() const { return descriptor; }

private:
    /// Tells a missing file from a missing folder, which share an errno.
    static ErrorNumber OpenError(const std::string& path) {
        const int systemError = errno;
        const std::string folder = FolderOf(path);
        struct stat status {};
        if (systemError == ENOENT && !folder.empty() && stat(folder.c_str(), &status) != 0)
            return ErrorNumber::pathNotFound;
        return ErrorNumberOf(systemError);
    }

    int descriptor;
};

constexpr off_t maxFileSize = off_t{1} << 30;

/// The size of a regular file; anything else (a folder, a FIFO, a device) is error 75.
std::size_t RegularFileSize(int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0)
        throw RuntimeError(ErrorNumber::deviceIo);
    if (!S_ISREG(status.st_mode))
        throw RuntimeError(ErrorNumber::pathFileAccess);
    if (status.st_size > maxFileSize)
        throw RuntimeError(ErrorNumber::outOfMemory);
    return static_cast<std::size_t>(status.st_size);
}

/// A fresh page costs as much as reading it, and large ones hold 500 times as much. The system may
/// decline.
void UseLargePages(char* bytes, std::size_t size) {
    constexpr std::size_t page = std::size_t{1} << 21;
    const auto address = reinterpret_cast<std::uintptr_t>(bytes);
    const std::uintptr_t first = (address + page - 1) / page * page;
    const std::uintptr_t end = (address + size) / page * page;
    if (first < end)
        madvise(bytes + (first - address), end - first, MADV_HUGEPAGE);
}

std::string ReadToEnd(int descriptor, std::size_t expectedSize) {
    // One byte more than the size shows whether the file grew since it was asked for. The buffer
    // has it from the start, because growing a string copies it.
    std::string bytes;
    bytes.reserve(expectedSize + 1);
    UseLargePages(bytes.data(), expectedSize + 1);
    bytes.resize(expectedSize + 1);
    std::size_t length = 0;
    for (;;) {
        if (length == bytes.size())
            bytes.resize(2 * length);
        const ssize_t count = read(descriptor, bytes.data() + length, bytes.size() - length);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw RuntimeError(ErrorNumberOf(errno));
        if (count == 0)
            break;
        length += static_cast<std::size_t>(count);
        if (length > maxFileSize)
            throw RuntimeError(ErrorNumber::outOfMemory);
    }
    bytes.resize(length);
    return bytes;
}

} // namespace

ErrorNumber ErrorNumberOf(int systemError) {
    switch (systemError) {
    case ENOENT:
        return ErrorNumber::fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
        return ErrorNumber::pathNotFound;
    case ENODEV:
    case ENXIO:
    case ENOMEDIUM:
        return ErrorNumber::deviceUnavailable;
    case EACCES:
    case EPERM:
    case EROFS:
        return ErrorNumber::permissionDenied;
    case EISDIR:
        return ErrorNumber::pathFileAccess;
    case ENOSPC:
    case EDQUOT:
        return ErrorNumber::diskFull;
    case EMFILE:
    case ENFILE:
        return ErrorNumber::tooManyFiles;
    default:
        return ErrorNumber::deviceIo;
    }
}

std::string ReadFileBytes(const std::string& path) try {
    constexpr int attempts = 3;
    for (int attempt = 1; attempt <= attempts; ++attempt) {
        const OpenFile file(path);
        const std::size_t size = RegularFileSize(file.Descriptor());
        std::string bytes = ReadToEnd(file.Descriptor(), size);
        // A shorter result means that another program is rewriting the file.
        if (bytes.size() >= size)
            return bytes;
    }
    throw RuntimeError(ErrorNumber::deviceIo);
} catch (const std::bad_alloc&) {
    throw RuntimeError(ErrorNumber::outOfMemory);
}

void CheckCall(bool wentWell) {
    if (!wentWell)
        throw WriteError(std::strerror(errno));
}

FileStamp StampOf(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? MakeStamp(status) : FileStamp();
}

bool IsSameFile(const std::string& path, const std::string& other) {
    const FileStamp stamp = StampOf(path);
    return stamp != FileStamp() && stamp == StampOf(other);
}

FileStamp MakeStamp(const struct stat& status) {
    constexpr std::int64_t nanosecondsPerSecond = 1000000000;
    return {status.st_dev, status.st_ino, status.st_size,
            status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec};
}

std::string FolderOf(std::string_view path) {
    const auto slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return "";
    return std::string(path.substr(0, slash == 0 ? 1 : slash));
}

} // namespace strativo
