#pragma once

#include "model/FileStamp.h"
#include "text/OutputBuffer.h"
#include "text/RuntimeError.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

struct stat;

namespace strativo {

/// The number under which messages report a failure of the operating system (an errno value).
ErrorNumber ErrorNumberOf(int systemError);

/// The whole content of a regular file. Throws run-time error 53, 57, 67, 68, 70, 75 or 76, and 7
/// for more than 1 GiB or than fits into memory. A file that ends before its announced size is read
/// again, and refused with 57 if that repeats.
std::string ReadFileBytes(const std::string& path);

/// The present stamp of the file, or that of no file if it is out of reach.
FileStamp StampOf(const std::string& path);

/// Whether both paths lead to the same file.
bool IsSameFile(const std::string& path, const std::string& other);

FileStamp MakeStamp(const struct stat& status);

/// The folder of a path, "" when it names none.
std::string FolderOf(std::string_view path);

/// Finds a file named inside another file: as it stands (or with "\" as "/") from the working
/// directory, then from the given folder, then ignoring letter case from the one and the other. If
/// it is nowhere, returns a path in the first of the two places that has the name's folder. Throws
/// run-time error 76 for a name with a drive letter that leads nowhere.
std::string FindFile(const std::string& name, const std::string& folder);

/// Thrown when a file could not be written; what() gives the reason, usually the operating system's
/// message.
class WriteError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Passes the bytes of a file to a sink, from first to last.
using ByteSource = std::function<void(const ByteSink& sink)>;

/// Throws WriteError with the operating system's message (errno) if its call failed.
void CheckCall(bool wentWell);

/// Replaces the file with these bytes, all or none: they are written to a new file beside it and
/// brought to the disk before the new file takes its place. Symbolic links are followed, except
/// those that another user made in a folder open to all; rights and extended attributes are kept. A
/// read-only file, or one with further hard links, is refused. Throws WriteError, with the old file
/// untouched. The stamp becomes that of the new file as soon as it is in place. Returns "", or why
/// the folder could not be brought to the disk: then the bytes are saved, but a loss of power may
/// undo it.
std::string ReplaceFile(const std::string& path, const ByteSource& source, FileStamp& stamp);

/// The same for a file of the program's own that only this user may read: a link in its place is
/// replaced instead of followed, and no rights or attributes are kept.
void ReplacePrivateFile(const std::string& path, std::string_view bytes);

} // namespace strativo
