#pragma once

#include "cli/Invocation.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace strativo {

/// The names of the files that a call works on: its operands, then those of a list, which is read
/// as it arrives.
class FileNames {
public:
    /// Waiting for the list ends early once this is true.
    using IsStopped = std::function<bool()>;

    /// Throws std::runtime_error when the list cannot be opened.
    FileNames(const Invocation& call, IsStopped isStopped);
    ~FileNames();
    FileNames(const FileNames&) = delete;
    FileNames& operator=(const FileNames&) = delete;

    /// The next name; nothing at the end. Throws std::runtime_error if the list cannot be read.
    std::optional<std::string> Next();

private:
    std::optional<std::string> NextOfList();
    bool ReadMore();

    const Invocation& invocation;
    IsStopped stopped;
    std::size_t operand = 0;
    int descriptor = -1; ///< of the list; -1 if there is none or it has ended
    std::string buffer;  ///< read from the list but not yet used
    std::size_t taken = 0;
};

} // namespace strativo
