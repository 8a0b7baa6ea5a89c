#pragma once

#include "cli/Invocation.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace strativo {

/// The names of the files that a call is about: its operands, then those of a list, which is read
/// as it comes.
class FileNames {
public:
    /// Waiting for the list ends early once this is true.
    using IsStopped = std::function<bool()>;

    /// Throws std::runtime_error when the list cannot be opened.
    FileNames(const Invocation& call, IsStopped isStopped);
    ~FileNames();
    FileNames(const FileNames&) = delete;
    FileNames& operator=(const FileNames&) = delete;

    /// Nothing at the end. Throws std::runtime_error when the list cannot be read.
    std::optional<std::string> Next();

private:
    std::optional<std::string> NextOfList();
    bool ReadMore();

    const Invocation& invocation;
    IsStopped stopped;
    std::size_t operand = 0;
    int descriptor = -1; ///< of the list; -1: none, or it is at its end
    std::string buffer;  ///< what was read of the list and not yet taken
    std::size_t taken = 0;
};

} // namespace strativo
