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

#include <ostream>

namespace strativo {

namespace {

/// Calls show(number) for each record with a name; free slots have none.
template <class Glass, class Action>
void ForEachNamed(const NumberedList<Glass>& types, Action show) {
    for (const int number : NamedGlassTypes(types))
        show(number);
}

template <class Action>
void ForEachConstruction(const Project& project, Action show) {
    for (const int number : ConstructionsInUse(project))
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
    /// Separates blocks with a blank line.
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
        PrintLines(out, view.lines, "  ");
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

constexpr int schemaVersion = 1;

/// Paths are shown as text; the encoding is needed to get their bytes back.
const char* EncodingOf(const std::string& path) {
    return IsValidUtf8(path) ? "utf-8" : "windows-1252";
}

void WriteState(JsonWriter& writer, const Session& session) {
    const Project& project = session.project;
    writer.Member("readToEnd", session.MayBeRewritten());
    writer.Member("standardLibraryFile", PathToUtf8(project.standardLibraryFile));
    writer.Member("standardLibraryFileEncoding", EncodingOf(project.standardLibraryFile));
    writer.Member("userLibraryFile", PathToUtf8(project.userLibraryFile));
    writer.Member("userLibraryFileEncoding", EncodingOf(project.userLibraryFile));
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

void ShowAsJson(const Session& session, const Invocation& call, std::ostream& out) {
    JsonWriter writer(out, JsonLayoutOf(call));
    writer.Begin('{');
    writer.Member("schemaVersion", schemaVersion);
    WriteFileMembers(writer, session);
    WriteState(writer, session);
    WriteTables(writer, session.project, call);
    WriteComments(writer, session.project.comments);
    writer.End('}');
}

void ShowAsText(const Session& session, std::ostream& out) {
    if (!session.prompts.Ended())
        TextShow(out).ShowProject(session.project);
}

OutputFrame FrameOf(const Invocation& call) {
    if (call.json || call.jsonLines)
        return JsonFrame(call);
    OutputFrame frame;
    if (call.csv)
        frame.start = csvHead;
    else
        frame.between = "\n"; // a blank line between blocks
    return frame;
}

} // namespace

int Show(const Invocation& call, std::ostream& out, std::ostream& err) {
    const auto show = [&](const std::string& file, std::ostream& fileOut, std::ostream& fileErr) {
        Session session(file, call, fileErr);
        session.Read();
        if (call.json || call.jsonLines)
            ShowAsJson(session, call, fileOut);
        else if (call.csv)
            WriteCsvRows(fileOut, session.project, file);
        else
            ShowAsText(session, fileOut);
        return session.Status();
    };
    return RunOnFiles(call, FrameOf(call), show, out, err);
}

} // namespace strativo
