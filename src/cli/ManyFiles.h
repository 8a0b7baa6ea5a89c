#pragma once

#include "cli/Invocation.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace strativo {

/// What stands around and between the outputs of several files.
struct OutputFrame {
    std::string start;
    std::string between; ///< two outputs that are not empty
    std::string end;
    std::string endOfNone; ///< in place of end where no output came
};

/// Prints what is to be known of one file and returns its exit status. Called by several threads.
using FileWork = std::function<int(const std::string& file, std::ostream& out, std::ostream& err)>;

/// Does the work for each file of the call, operands first, with as many at a time as it says, and
/// prints what they made in their order: the same bytes whatever that number is. Returns the
/// highest exit status, or that of an interruption by the user: files that were begun are ended
/// then, and no further one is begun. Throws std::runtime_error when the list of files cannot be
/// read.
int RunOnFiles(const Invocation& call, const OutputFrame& frame, const FileWork& work,
               std::ostream& out, std::ostream& err);

/// All names of files of the call, in the order of RunOnFiles.
std::vector<std::string> AllFiles(const Invocation& call);

} // namespace strativo
