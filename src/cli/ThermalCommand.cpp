#include "calc/DynamicCharacteristics.h"
#include "calc/ThermalText.h"
#include "cli/Commands.h"
#include "cli/JsonRecords.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "cli/ThermalCsv.h"
#include "cli/ThermalJson.h"
#include "edit/ConstructionSlots.h"

#include <algorithm>
#include <ostream>

namespace strativo {

namespace {

class ThermalShow {
public:
    ThermalShow(std::ostream& stream, const ThermalChoice& asked) : out(stream), choice(asked) {}

    void ShowProject(const Project& project) {
        for (const int number : ConstructionsInUse(project))
            ShowConstruction(project.constructions[number], number);
    }

    void ShowNote() {
        if (any)
            out << '\n' << cavityNote << '\n';
    }

private:
    void ShowConstruction(const Construction& construction, int number) {
        const bool transparent = construction.type == transparentType;
        out << (any ? "\n" : "") << ConstructionTitle(number) << "  "
            << ShownText(construction.name) << "  (" << (transparent ? "Transparent" : "Opaque")
            << ")   outside to inside\n";
        for (const std::string& line : ThermalLines(construction, choice.conditions, choice.flows))
            out << ShownText(line) << '\n';
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

/// Reads each file and hands it on; the highest of the statuses.
template <class Action>
int ForEachFile(const Invocation& call, std::ostream& err, Action action) {
    int status = 0;
    for (const std::string& file : call.operands) {
        Session session(file, call, err);
        session.Read();
        action(session);
        status = std::max(status, session.Status());
    }
    return status;
}

} // namespace

int Thermal(const Invocation& call, std::ostream& out, std::ostream& err) {
    const ThermalChoice choice = ThermalChoiceOf(call);
    if (call.csv) {
        WriteThermalCsvHead(out);
        return ForEachFile(call, err, [&](const Session& session) {
            WriteThermalCsvRows(out, session.project, session.file, choice);
        });
    }
    if (!call.json) {
        ThermalShow show(out, choice);
        const int status = ForEachFile(call, err, [&](const Session& session) {
            if (!session.prompts.Ended())
                show.ShowProject(session.project);
        });
        show.ShowNote();
        return status;
    }
    JsonWriter writer(out);
    writer.Begin('[');
    const int status = ForEachFile(call, err, [&](const Session& session) {
        writer.Begin('{');
        WriteFileMembers(writer, session);
        WriteConditions(writer, choice.conditions);
        WriteConstructions(writer, session.project, choice);
        writer.End('}');
    });
    writer.End(']');
    return status;
}

} // namespace strativo
