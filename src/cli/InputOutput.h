#pragma once

#include "files/FileAccess.h"

#include <iosfwd>
#include <stdexcept>
#include <string>

namespace strativo {

/// As a file name: standard input or standard output.
inline constexpr char standardStream[] = "-";

/// A file could not be read; what() is the operating system's message.
class ReadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The bytes of a file or of standard input; of a larger one than the limit at least one byte more
/// than that, and not all of them. Throws ReadError.
std::string ReadInput(const std::string& path, std::size_t limit);

/// Replaces a file or writes to the stream given for standard output, as ReplaceFile does it.
/// Throws WriteError.
std::string WriteOutput(const std::string& path, const ByteSource& source, std::ostream& out);

} // namespace strativo
