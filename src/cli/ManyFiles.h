#pragma once

#include "cli/Invocation.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace strativo {

/// What surrounds and separates the outputs of several files.
struct OutputFrame {
    std::string start;
    std::string between; ///< printed between two outputs that are not empty
    std::string end;
    std::string endOfNone; ///< replaces `end` if there was no output
};

/// Prints the result for one file and returns its exit status. Called by several threads.
using FileWork = std::function<int(const std::string& file, std::ostream& out, std::ostream& err)>;

/// Does the work for each file of the call, operands first, with as many at a time as the call
/// says, and prints the outputs in order; the bytes do not depend on that number. Returns the
/// highest exit status, or that of an interruption by the user: then the files in progress are
/// completed and no further ones are begun. Throws std::runtime_error if the list of files cannot
/// be read.
int RunOnFiles(const Invocation& call, const OutputFrame& frame, const FileWork& work,
               std::ostream& out, std::ostream& err);

/// All file names of the call, in the order of RunOnFiles.
std::vector<std::string> AllFiles(const Invocation& call);

} // namespace strativo
