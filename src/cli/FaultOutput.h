#pragma once

#include "cli/Invocation.h"
#include "exchange/Fault.h"
#include "files/FileAccess.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace strativo {

/// What became of a file that something was to be made from.
struct MakeResult {
    std::string file; ///< as the caller wrote it
    bool written = false;
    std::string notSafe; ///< why what was written may be lost with the power; "" for nothing
    std::vector<Fault> faults;
    std::size_t moreFaults = 0;
};

/// The bytes of the result's file, as ReadInput gives them; a failure becomes a fault.
std::optional<std::string> ReadOrFail(MakeResult& result, std::size_t limit);

/// Writes what was made, as WriteOutput does it; a failure becomes a fault.
void WriteOrFail(MakeResult& result, const std::string& path, const ByteSource& source,
                 std::ostream& out);

/// Prints what is worth telling although it is no fault, a line each.
void PrintNotes(std::ostream& err, const std::string& file, const std::vector<Fault>& notes);

/// Prints each fault as a line on standard error (its place or pointer, text and rule) and, with
/// --json, the result as a document. Gives the exit status.
int Report(const Invocation& call, const MakeResult& result, std::ostream& out, std::ostream& err);

} // namespace strativo
