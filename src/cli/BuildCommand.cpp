#include "cli/Commands.h"
#include "cli/FaultOutput.h"
#include "cli/TerminalPrompts.h"
#include "exchange/JsonTree.h"
#include "exchange/ProjectFromJson.h"
#include "files/ConstructionWriter.h"
#include "project/ReadBack.h"
#include "project/SaveQuestions.h"

#include <utility>

namespace strativo {

namespace {

void Save(const Invocation& call, const Project& project, MakeResult& result, std::ostream& out,
          std::ostream& err) {
    TerminalPrompts prompts(err, result.file, {});
    CheckBeforeSave(project, prompts);
    if (call.dryRun)
        return;
    WriteOrFail(
        result, call.operands[1],
        [&](const ByteSink& sink) { WriteConstructionText(project, sink); }, out);
}

} // namespace

int Build(const Invocation& call, std::ostream& out, std::ostream& err) {
    MakeResult result;
    result.file = call.operands[0];
    if (const auto json = ReadOrFail(result, largestJson)) {
        const auto any = [](NamedPart, const std::string&) { return true; };
        BuiltProject built = BuildProject(*json, call.force ? NameTest(any) : ComesBack);
        result.faults = std::move(built.faults);
        result.moreFaults = built.moreFaults;
        if (result.faults.empty())
            Save(call, built.project, result, out, err);
    }
    return Report(call, result, out, err);
}

} // namespace strativo
