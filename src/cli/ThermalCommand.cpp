#include "calc/DynamicCharacteristics.h"
#include "calc/ThermalText.h"
#include "cli/Commands.h"
#include "cli/JsonRecords.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "cli/ThermalCsv.h"
#include "cli/ThermalJson.h"
#include "edit/ConstructionSlots.h"
#include "files/WorkAhead.h"

#include <algorithm>
#include <ostream>
#include <sstream>
#include <utility>
#include <vector>

namespace strativo {

namespace {

void ShowConstruction(std::ostream& out, const Construction& construction, int number,
                      const ThermalChoice& choice) {
    const bool transparent = construction.type == transparentType;
    out << ConstructionTitle(number) << "  " << ShownText(construction.name) << "  ("
        << (transparent ? "Transparent" : "Opaque") << ")   outside to inside\n";
    PrintLines(out, ThermalLines(construction, choice.conditions, choice.flows));
}

/// Large projects are calculated by several processors.
void ShowProject(std::ostream& out, const Project& project, const ThermalChoice& choice) {
    constexpr std::size_t each = 64;
    constexpr std::size_t distance = 64;
    std::vector<int> numbers;
    for (const int number : ConstructionsInUse(project))
        numbers.push_back(number);
    const std::size_t pieces = (numbers.size() + each - 1) / each;
    const auto show = [&](std::size_t piece) {
        std::ostringstream text;
        for (std::size_t i = piece * each; i < std::min((piece + 1) * each, numbers.size()); ++i) {
            text << (i > 0 ? "\n" : "");
            ShowConstruction(text, project.constructions[numbers[i]], numbers[i], choice);
        }
        return std::move(text).str();
    };
    WorkAhead<std::string> texts(pieces, show, HelpingThreads(), distance);
    for (std::size_t piece = 0; piece < pieces; ++piece)
        out << texts.Take(piece);
}

void WriteConditions(JsonWriter& writer, const ThermalConditions& conditions) {
    writer.Member("period", secondsPerDay / secondsPerHour);
    writer.Member("insideTemperature", conditions.air.inside);
    writer.Member("outsideTemperature", conditions.air.outside);
    writer.Member("firstLayer", SideName(conditions.firstLayer));
    writer.Member("note", cavityNote);
}

void WriteConstructions(JsonWriter& writer, const Project& project, const ThermalChoice& choice) {
    writer.Key("constructions");
    writer.Begin('[');
    for (const int number : ConstructionsInUse(project)) {
        const Construction& construction = project.constructions[number];
        Json json = {
            {"number", number}, {"name", ToUtf8(construction.name)}, {"type", construction.type}};
        json.update(JsonOfThermal(construction, choice));
        writer.Value(json);
    }
    writer.End(']');
}

void ShowAsJson(JsonLayout layout, std::ostream& out, const Session& session,
                const ThermalChoice& choice) {
    JsonWriter writer(out, layout);
    writer.Begin('{');
    WriteFileMembers(writer, session);
    WriteConditions(writer, choice.conditions);
    WriteConstructions(writer, session.project, choice);
    writer.End('}');
}

OutputFrame FrameOf(const Invocation& call) {
    if (call.json)
        return JsonFrame(call);
    OutputFrame frame;
    if (call.csv) {
        std::ostringstream head;
        WriteThermalCsvHead(head);
        frame.start = head.str();
    } else {
        frame.between = "\n"; // a blank line between constructions
        frame.end = "\n" + std::string(cavityNote) + "\n";
    }
    return frame;
}

} // namespace

int Thermal(const Invocation& call, std::ostream& out, std::ostream& err) {
    const ThermalChoice choice = ThermalChoiceOf(call);
    const auto show = [&](const std::string& file, std::ostream& fileOut, std::ostream& fileErr) {
        Session session(file, call, fileErr);
        session.Read();
        if (call.json)
            ShowAsJson(JsonLayoutOf(call), fileOut, session, choice);
        else if (call.csv)
            WriteThermalCsvRows(fileOut, session.project, session.file, choice);
        else if (!session.prompts.Ended())
            ShowProject(fileOut, session.project, choice);
        return session.Status();
    };
    return RunOnFiles(call, FrameOf(call), show, out, err);
}

} // namespace strativo
