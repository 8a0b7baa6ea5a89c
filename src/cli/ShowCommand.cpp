#include "calc/LayerList.h"
#include "cli/Commands.h"
#include "cli/CsvOutput.h"
#include "cli/JsonRecords.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "cli/ThermalJson.h"
#include "edit/ConstructionSlots.h"
#include "text/Format.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <ostream>

namespace strativo {

namespace {

/// Calls show(number) for each record with a name; free slots have none.
template <class Glass, class Action>
void ForEachNamed(const NumberedList<Glass>& types, Action show) {
    for (int number = 1; number <= types.Size(); ++number)
        if (!types[number].name.empty())
            show(number);
}

template <class Action>
void ForEachConstruction(const Project& project, Action show) {
    for (int number = 1; number <= project.constructions.Size(); ++number)
        if (InUse(project, number))
            show(number);
}

class TextShow {
public:
    explicit TextShow(std::ostream& stream) : out(stream) {}

    void ShowProject(const Project& project) {
        ForEachConstruction(project, [&](int number) {
            StartBlock();
            ShowConstruction(project.constructions[number], number);
        });
        bool first = true;
        ForEachNamed(project.glassTypes, [&](int number) {
            if (first)
                StartBlock();
            first = false;
            ShowGlassType(project.glassTypes[number], number);
        });
    }

private:
    /// Puts a blank line between blocks.
    void StartBlock() {
        if (anyBlock)
            out << '\n';
        anyBlock = true;
    }

    void ShowConstruction(const Construction& construction, int number) {
        const bool transparent = construction.type == transparentType;
        out << ConstructionTitle(number) << "  " << ShownText(construction.name) << "  ("
            << (transparent ? "Transparent" : "Opaque") << ")\n";
        const LayerListView view = ViewLayerList(construction);
        for (const std::string& line : view.lines)
            out << "  " << ShownText(line) << '\n';
        out << "  Indicative Uvalue W/Cm2  " << view.result << '\n';
    }

    void ShowGlassType(const GlassType& type, int number) {
        out << "Glass type" << SignPositionNumber(number) << "  " << ShownText(type.name)
            << "  transmission " << Values(type.transmission) << "  absorption "
            << Values(type.absorption) << '\n';
    }

    /// As the glass properties editor shows them.
    static std::string Values(const AngularValues& values) {
        return FormatNumber(values[2], "0.000") + " (diffuse " + FormatNumber(values[1], "0.000")
               + ")";
    }

    std::ostream& out;
    bool anyBlock = false;
};

void WriteState(JsonWriter& writer, const Project& project) {
    writer.Member("standardLibraryFile", PathToUtf8(project.standardLibraryFile));
    writer.Member("userLibraryFile", PathToUtf8(project.userLibraryFile));
    writer.Member("standardLoaded", project.standardLoaded);
    writer.Member("userLoaded", project.userLoaded);
    writer.Member("userLibraryNeeded", project.userLibraryNeeded);
    writer.Member("changed", project.changed);
}

Json JsonOfShown(const Project& project, int number, const Invocation& call) {
    Json json = JsonOfConstruction(project, number);
    if (call.thermal)
        json["x-thermal"] = JsonOfThermal(project.constructions[number], ThermalChoiceOf(call));
    return json;
}

void WriteTables(JsonWriter& writer, const Project& project, const Invocation& call) {
    writer.Key("constructions");
    writer.Begin('[');
    ForEachConstruction(project,
                        [&](int number) { writer.Value(JsonOfShown(project, number, call)); });
    writer.End(']');
    writer.Key("glassTypes");
    writer.Begin('[');
    ForEachNamed(project.glassTypes,
                 [&](int number) { writer.Value(JsonOfGlassType(project, number)); });
    writer.End(']');
    writer.Key("glassTypes2D");
    writer.Begin('[');
    ForEachNamed(project.glassTypes2D,
                 [&](int number) { writer.Value(JsonOfGlassType2D(project, number)); });
    writer.End(']');
}

void WriteComments(JsonWriter& writer, const Comments& comments) {
    writer.Member("comments", {{"fileHead", JsonOf(comments.fileHead)},
                               {"standardLibrary", JsonOf(comments.standardLibrary)},
                               {"userLibrary", JsonOf(comments.userLibrary)},
                               {"noSection", JsonOf(comments.noSection)}});
}

int ShowAsJson(const Invocation& call, std::ostream& out, std::ostream& err) {
    int status = 0;
    JsonWriter writer(out);
    writer.Begin('[');
    for (const std::string& file : call.operands) {
        Session session(file, call, err);
        session.Read();
        writer.Begin('{');
        WriteFileMembers(writer, session);
        WriteState(writer, session.project);
        WriteTables(writer, session.project, call);
        WriteComments(writer, session.project.comments);
        writer.End('}');
        status = std::max(status, session.Status());
    }
    writer.End(']');
    return status;
}

int ShowAsText(const Invocation& call, std::ostream& out, std::ostream& err) {
    int status = 0;
    TextShow show(out);
    for (const std::string& file : call.operands) {
        Session session(file, call, err);
        session.Read();
        if (!session.prompts.Ended())
            show.ShowProject(session.project);
        status = std::max(status, session.Status());
    }
    return status;
}

int ShowAsCsv(const Invocation& call, std::ostream& out, std::ostream& err) {
    int status = 0;
    WriteCsvHead(out);
    for (const std::string& file : call.operands) {
        Session session(file, call, err);
        session.Read();
        WriteCsvRows(out, session.project, file);
        status = std::max(status, session.Status());
    }
    return status;
}

} // namespace

int Show(const Invocation& call, std::ostream& out, std::ostream& err) {
    if (call.csv)
        return ShowAsCsv(call, out, err);
    return call.json ? ShowAsJson(call, out, err) : ShowAsText(call, out, err);
}

} // namespace strativo
