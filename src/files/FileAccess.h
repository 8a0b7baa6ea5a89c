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

/// The whole content of a regular file. Run-time error 53, 57, 67, 68, 70, 75 or 76, and 7 for more
/// than 1 GiB or more than fits into memory. One that ends before the size that the file system
/// gave is read again, and refused with 57 when that repeats.
std::string ReadFileBytes(const std::string& path);

/// The stamp of the file as it is now; that of no file where it cannot be looked at.
FileStamp StampOf(const std::string& path);

/// Whether both paths lead to one file, whatever their names.
bool IsSameFile(const std::string& path, const std::string& other);

FileStamp MakeStamp(const struct stat& status);

/// The folder of a path, "" when it names none.
std::string FolderOf(std::string_view path);

/// The path under which a file named inside another file is found: as it stands (or with "\" as
/// "/") from the working directory, then from the folder given, and where that leads nowhere in
/// another letter case from the one, then the other. Where nothing is found, a path in the first
/// of the two places that has the folder of the name. Run-time error 76 for a name with a drive
/// letter that leads nowhere.
std::string FindFile(const std::string& name, const std::string& folder);

/// A file could not be written; what() is the operating system's message or says why not.
class WriteError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Gives the bytes of a file to a sink, from the first to the last.
using ByteSource = std::function<void(const ByteSink& sink)>;

/// Throws WriteError with the operating system's message (errno) unless its call went well.
void CheckCall(bool wentWell);

/// Replaces the file by these bytes, all of them or none: they are written to a new file beside
/// it and brought to the disk before that takes its place. Symbolic links are followed, apart from
/// those that another user made in a folder open to all; rights, and extended attributes, are kept.
/// A read-only file, or one with further hard links, is refused. Throws WriteError, with the old
/// file untouched. The stamp becomes the new file's as soon as that is in its place. "", or why the
/// folder could not be brought to the disk: the bytes are saved, but a loss of power may undo it.
std::string ReplaceFile(const std::string& path, const ByteSource& source, FileStamp& stamp);

/// The same for a file of the program's own that only this user may read: a link in its place is
/// replaced and not followed, and nothing of an old file is kept.
void ReplacePrivateFile(const std::string& path, std::string_view bytes);

} // namespace strativo
