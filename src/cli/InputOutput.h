#pragma once

#include "files/FileAccess.h"

#include <iosfwd>
#include <stdexcept>
#include <string>

namespace strativo {

/// The file name that stands for standard input or output.
inline constexpr char standardStream[] = "-";

/// Thrown when a file could not be read; what() is the operating system's message.
class ReadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The bytes of a file or of standard input. Of an input beyond the limit, at least one byte more
/// than the limit is read, but not all of it. Throws ReadError.
std::string ReadInput(const std::string& path, std::size_t limit);

/// Replaces a file with ReplaceFile, or writes to the given stream for standard output. Throws
/// WriteError.
std::string WriteOutput(const std::string& path, const ByteSource& source, std::ostream& out);

/// The same, but prints a message if something goes wrong. False if nothing was written.
bool WriteOrTell(const std::string& path, const ByteSource& source, std::ostream& out,
                 std::ostream& err);

/// True if the stream is standard output or standard error and leads to a terminal.
bool IsTerminal(const std::ostream& stream);

} // namespace strativo
