#include "calc/DynamicCharacteristics.h"
#include "calc/ThermalText.h"
#include "cli/Commands.h"
#include "cli/JsonRecords.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "cli/ThermalCsv.h"
#include "cli/ThermalJson.h"
#include "edit/ConstructionSlots.h"

#include <ostream>
#include <sstream>

namespace strativo {

namespace {

class ThermalShow {
public:
    ThermalShow(std::ostream& stream, const ThermalChoice& asked) : out(stream), choice(asked) {}

    void ShowProject(const Project& project) {
        for (const int number : ConstructionsInUse(project))
            ShowConstruction(project.constructions[number], number);
    }

private:
    void ShowConstruction(const Construction& construction, int number) {
        const bool transparent = construction.type == transparentType;
        out << (any ? "\n" : "") << ConstructionTitle(number) << "  "
            << ShownText(construction.name) << "  (" << (transparent ? "Transparent" : "Opaque")
            << ")   outside to inside\n";
        PrintLines(out, ThermalLines(construction, choice.conditions, choice.flows));
        any = true;
    }

    std::ostream& out;
    const ThermalChoice& choice;
    bool any = false;
};

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
            ThermalShow(fileOut, choice).ShowProject(session.project);
        return session.Status();
    };
    return RunOnFiles(call, FrameOf(call), show, out, err);
}

} // namespace strativo
