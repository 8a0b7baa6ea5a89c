#include "cli/Commands.h"
#include "cli/FaultOutput.h"
#include "cli/InputOutput.h"
#include "exchange/CsvText.h"
#include "exchange/LibraryTable.h"

#include <utility>

namespace strativo {

int MakeLibrary(const Invocation& call, std::ostream& out, std::ostream& err) {
    MakeResult result;
    result.file = call.operands[0];
    BuiltLibrary built;
    const auto layout = call.user ? LibraryLayout::user : LibraryLayout::standard;
    if (const auto csv = ReadOrFail(result, largestCsv)) {
        built = BuildLibrary(*csv, layout);
        result.faults = std::move(built.faults);
        result.moreFaults = built.moreFaults;
        PrintNotes(err, result.file, built.notes);
    }
    if (result.faults.empty() && !call.dryRun)
        WriteOrFail(
            result, call.operands[1], [&](const ByteSink& sink) { sink(built.bytes); }, out);
    return Report(call, result, out, err);
}

} // namespace strativo
