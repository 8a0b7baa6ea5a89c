#include "cli/FaultOutput.h"

#include "cli/ExitStatus.h"
#include "cli/InputOutput.h"
#include "cli/JsonWriter.h"
#include "cli/TextOutput.h"
#include "files/FileMessages.h"

#include <algorithm>
#include <ostream>

namespace strativo {

namespace {

/// The pointer, with each key as messages quote it.
std::string ShownPointer(const std::string& pointer) {
    if (pointer.empty())
        return "(root)";
    std::string shown;
    for (std::size_t at = 0; at < pointer.size();) {
        const auto end = std::min(pointer.find('/', at + 1), pointer.size());
        shown += "/" + Excerpt(pointer.substr(at + 1, end - at - 1));
        at = end;
    }
    return shown;
}

std::string ShownPlace(const Fault& fault) {
    if (fault.place)
        return ":" + std::to_string(fault.place->line) + ":" + std::to_string(fault.place->column);
    return fault.pointer ? ": " + ShownPointer(*fault.pointer) : "";
}

Json JsonOf(const Fault& fault) {
    Json json = {{"rule", fault.rule}};
    if (fault.pointer)
        json["pointer"] = *fault.pointer;
    if (fault.place) {
        json["line"] = fault.place->line;
        json["column"] = fault.place->column;
    }
    json["text"] = fault.text;
    return json;
}

Fault SystemFault(const char* rule, const std::string& text) {
    return {rule, text, std::nullopt, std::nullopt};
}

void PrintFault(std::ostream& err, const std::string& file, const Fault& fault) {
    PrintError(err,
               PathToUtf8(file) + ShownPlace(fault) + ": " + fault.text + " [" + fault.rule + "]");
}

void PrintMakeResult(std::ostream& out, const MakeResult& result) {
    JsonWriter writer(out);
    writer.Begin('{');
    writer.Member("file", PathToUtf8(result.file));
    writer.Member("written", result.written);
    writer.Key("errors");
    writer.Begin('[');
    for (const Fault& fault : result.faults)
        writer.Value(JsonOf(fault));
    writer.End(']');
    writer.End('}');
}

} // namespace

std::optional<std::string> ReadOrFail(MakeResult& result, std::size_t limit) {
    try {
        return ReadInput(result.file, limit);
    } catch (const ReadError& error) {
        result.faults.push_back(SystemFault("not-read", error.what()));
        return std::nullopt;
    }
}

void WriteOrFail(MakeResult& result, const std::string& path, const ByteSource& source,
                 std::ostream& out) {
    try {
        result.notSafe = WriteOutput(path, source, out);
        result.written = true;
    } catch (const WriteError& error) {
        result.faults.push_back(SystemFault("not-written", PathToUtf8(path) + ": " + error.what()));
    }
}

void PrintNotes(std::ostream& err, const std::string& file, const std::vector<Fault>& notes) {
    for (const Fault& note : notes)
        PrintFault(err, file, note);
}

int Report(const Invocation& call, const MakeResult& result, std::ostream& out, std::ostream& err) {
    for (const Fault& fault : result.faults)
        PrintFault(err, result.file, fault);
    if (result.moreFaults > 0)
        PrintError(err, PathToUtf8(result.file) + ": and " + std::to_string(result.moreFaults)
                            + " more");
    if (!result.notSafe.empty())
        PrintError(err, PathToUtf8(call.operands[1]) + ": " + savedButNotSafe + result.notSafe);
    if (call.json)
        PrintMakeResult(out, result);
    return result.faults.empty() ? exitAllWell : exitFailure;
}

} // namespace strativo
