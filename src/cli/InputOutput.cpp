#include "cli/InputOutput.h"

#include "cli/TextOutput.h"
#include "files/FileMessages.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <unistd.h>

namespace strativo {

namespace {

/// An errno value that stands for this kind of failure.
int SystemError(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::fileNotFound:
    case ErrorNumber::pathNotFound:
        return ENOENT;
    case ErrorNumber::tooManyFiles:
        return EMFILE;
    case ErrorNumber::deviceUnavailable:
        return ENODEV;
    case ErrorNumber::permissionDenied:
        return EACCES;
    default:
        return EIO;
    }
}

std::string ReadStandardInput(std::size_t limit) {
    std::string bytes;
    std::array<char, 1 << 16> piece{};
    while (bytes.size() <= limit) {
        const ssize_t count = read(STDIN_FILENO, piece.data(), piece.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw ReadError(std::strerror(errno));
        if (count == 0)
            break;
        bytes.append(piece.data(), static_cast<std::size_t>(count));
    }
    return bytes;
}

} // namespace

std::string ReadInput(const std::string& path, std::size_t limit) {
    if (path == standardStream)
        return ReadStandardInput(limit);
    if (StampOf(path).size > static_cast<std::int64_t>(limit))
        return std::string(limit + 1, ' ');
    try {
        return ReadFileBytes(path);
    } catch (const RuntimeError& error) {
        if (error.Number() == ErrorNumber::pathFileAccess)
            throw ReadError("It is not a regular file");
        throw ReadError(std::strerror(SystemError(error.Number())));
    }
}

std::string WriteOutput(const std::string& path, const ByteSource& source, std::ostream& out) {
    if (path == standardStream) {
        source([&](std::string_view piece) { out << piece; });
        return "";
    }
    FileStamp stamp;
    return ReplaceFile(path, source, stamp);
}

bool WriteOrTell(const std::string& path, const ByteSource& source, std::ostream& out,
                 std::ostream& err) {
    try {
        const std::string notSafe = WriteOutput(path, source, out);
        if (!notSafe.empty())
            PrintError(err, PathToUtf8(path) + ": " + savedButNotSafe + notSafe);
        return true;
    } catch (const WriteError& error) {
        PrintError(err, PathToUtf8(path) + ": " + error.what());
        return false;
    }
}

bool IsTerminal(const std::ostream& stream) {
    return (stream.rdbuf() == std::cout.rdbuf() && isatty(STDOUT_FILENO) == 1)
           || (stream.rdbuf() == std::cerr.rdbuf() && isatty(STDERR_FILENO) == 1);
}

} // namespace strativo
