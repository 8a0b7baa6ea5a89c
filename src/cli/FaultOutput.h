#pragma once

#include "cli/Invocation.h"
#include "exchange/Fault.h"
#include "files/FileAccess.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace strativo {

/// The outcome of making something from a file.
struct MakeResult {
    std::string file; ///< as the caller wrote it
    bool written = false;
    std::string notSafe; ///< why a loss of power may still undo the writing; "" if it cannot
    std::vector<Fault> faults;
    std::size_t moreFaults = 0;
};

/// The bytes of the result's file, read with ReadInput; a failure becomes a fault.
std::optional<std::string> ReadOrFail(MakeResult& result, std::size_t limit);

/// Writes the result with WriteOutput; a failure becomes a fault.
void WriteOrFail(MakeResult& result, const std::string& path, const ByteSource& source,
                 std::ostream& out);

/// Prints remarks that are not faults, one per line.
void PrintNotes(std::ostream& err, const std::string& file, const std::vector<Fault>& notes);

/// Prints each fault as a line on standard error (its place or pointer, text and rule) and, with
/// --json, the result as a document. Returns the exit status.
int Report(const Invocation& call, const MakeResult& result, std::ostream& out, std::ostream& err);

} // namespace strativo
