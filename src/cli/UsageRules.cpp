#include "cli/UsageRules.h"

#include "cli/Commands.h"
#include "cli/InputOutput.h"
#include "cli/ThermalOptions.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <charconv>
#include <sched.h>

namespace strativo {

namespace {

constexpr int mostJobs = 256;

std::string ExportFault(const Invocation& call) {
    if (call.format.empty())
        return "export needs --format epjson";
    if (call.format != "epjson")
        return "--format knows no format " + PathToUtf8(call.format);
    return "";
}

/// The processors that this process may use, which may be fewer than there are.
int UsableProcessors() {
    cpu_set_t processors;
    CPU_ZERO(&processors);
    if (sched_getaffinity(0, sizeof processors, &processors) != 0)
        return 1;
    return std::clamp(CPU_COUNT(&processors), 1, mostJobs);
}

} // namespace

int JobsOf(const Invocation& call) {
    if (call.jobs.empty())
        return UsableProcessors();
    int jobs = 0;
    const char* const end = call.jobs.data() + call.jobs.size();
    const auto read = std::from_chars(call.jobs.data(), end, jobs);
    const bool isNumber = read.ec == std::errc() && read.ptr == end;
    return isNumber && jobs >= 1 && jobs <= mostJobs ? jobs : 0;
}

std::string OptionFault(const Invocation& call, const Command& command) {
    if (!IsSortKey(call.sortKey))
        return "--sort knows no order " + PathToUtf8(call.sortKey);
    if (call.thermal && !call.json && !call.jsonLines)
        return "--thermal needs --json";
    const std::string thermalFault = ThermalFault(call);
    if (!thermalFault.empty())
        return thermalFault;
    if (call.json && call.csv)
        return "--json and --csv do not go together";
    if (call.jsonLines && (call.json || call.csv))
        return "--jsonl does not go together with --json and --csv";
    if (call.nullEnds && call.filesFrom.empty())
        return "-0 needs --files-from";
    if (JobsOf(call) == 0)
        return "--jobs takes a number from 1 to 256";
    const bool makesFile = (command.options & dryRunOption) != 0;
    if (makesFile && call.json && call.operands.size() == 2 && call.operands[1] == standardStream)
        return "--json and the file cannot both go to standard output";
    return (command.options & exportOption) != 0 ? ExportFault(call) : "";
}

} // namespace strativo
