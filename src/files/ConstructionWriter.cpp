#include "files/ConstructionWriter.h"

#include "calc/CavityTypes.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace strativo {

namespace {

// Constants, so that the compiler parses the patterns and not each call.
constexpr NumberPattern materialPattern = "##0";
constexpr NumberPattern thicknessPattern = "#0.000";
constexpr NumberPattern resistancePattern = "#0.000000";
constexpr NumberPattern absorptionPattern = "0.00";
constexpr NumberPattern glassPattern = "0.0##";

/// Pattern for a thickness in metres.
const NumberPattern& PatternOfThickness(const Layer& layer) {
    return layer.materialCode == resistanceCavity ? resistancePattern : thicknessPattern;
}

class Writer {
public:
    Writer(const Project& source, const ByteSink& sink) : project(source), out(sink) {}

    void Run() {
        WriteLibraries();
        for (const int number : ConstructionsInUse(project))
            WriteConstruction(number);
        WriteGlassTypes(project.glassTypes, project.comments.glassTypes, "!WINDOW = '");
        WriteGlassTypes(project.glassTypes2D, project.comments.glassTypes2D, "!WINDOW 2D = '");
        WriteComments(project.comments.noSection);
        out.Flush();
    }

private:
    void Line(std::string_view a, std::string_view b = "", std::string_view c = "") {
        out.Put(a);
        out.Put(b);
        out.Put(c);
        out.Put("\r\n");
    }

    void WriteComments(const CommentLines& comments) {
        for (const std::string& text : comments)
            Line("*", text);
    }

    void WriteLibraries() {
        WriteComments(project.comments.fileHead);
        Line("!MATERIALS FILE = '", project.standardLibraryFile, "'");
        WriteComments(project.comments.standardLibrary);
        if (project.userLoaded) {
            Line("!MATERIALS USER FILE = '", project.userLibraryFile, "'");
            WriteComments(project.comments.userLibrary);
        }
        Line("");
    }

    void WriteConstruction(int number) {
        const Construction& construction = project.constructions[number];
        const bool transparent = construction.type == transparentType;
        Line("!CONSTRUCTION '", construction.name, "'");
        Line(transparent ? "!TYPE TRANSPARENT" : "!TYPE OPAQUE");
        WriteComments(project.comments.constructions.Of(number));
        Line("!PARTS");
        for (const int slot : FilledSlots(construction))
            WritePart(construction.layers[slot], slot, transparent);
        Line("!END");
        Line("");
    }

    void WritePart(const Layer& layer, int slot, bool transparent) {
        out.Put("_ ");
        out.PutInteger(slot);
        out.Put(layer.library == userLibraryNumber ? " =      @" : " =       ");
        WriteMaterialNumber(layer);
        out.Put("      ");
        WriteThickness(layer);
        out.Put("   0      ");
        if (transparent)
            out.PutNumber(layer.absorption, absorptionPattern);
        WriteLayerName(layer.name);
    }

    /// A cavity is written with its conductivity, which holds its code. Any other layer without a
    /// material number may have any conductivity, but beyond 16 bits it would make the file
    /// unreadable.
    void WriteMaterialNumber(const Layer& layer) {
        using Limits = std::numeric_limits<std::int16_t>;
        if (layer.materialCode > 0)
            out.PutInteger(layer.materialCode);
        else
            out.PutNumber(std::clamp<double>(layer.conductivity, Limits::min(), Limits::max()),
                          materialPattern);
    }

    /// The quoted name of a user library may contain line breaks, a comment may not.
    void WriteLayerName(std::string_view name) {
        out.Put("      * ");
        for (auto end = name.find('\n'); end != std::string_view::npos; end = name.find('\n')) {
            out.Put(name.substr(0, end));
            out.Put(" ");
            name.remove_prefix(end + 1);
        }
        Line(name);
    }

    void WriteThickness(const Layer& layer) {
        out.PutNumber(layer.thickness / 1000, PatternOfThickness(layer));
        if (layer.materialCode != resistanceCavity)
            out.Put("   ");
    }

    template <class Glass>
    void WriteGlassTypes(const NumberedList<Glass>& types, const OwnedComments& comments,
                         std::string_view keyword) {
        for (const int number : NamedGlassTypes(types)) {
            const Glass& type = types[number];
            Line(keyword, type.name, "'");
            WriteComments(comments.Of(number));
            Line("!TRANSMISSION =");
            WriteTable(type.transmission);
            Line("!ABSORPTION =");
            WriteTable(type.absorption);
            if (type.hasDiffusion) {
                Line("!DIFFUSION =");
                WriteTable(type.diffusion);
            }
            Line("!END");
            Line("");
        }
    }

    template <class Row>
    void WriteRow(const Row& row) {
        std::string_view separator;
        for (const float value : row) {
            out.Put(separator);
            out.PutNumber(value, glassPattern);
            separator = ", ";
        }
        Line("");
    }

    void WriteTable(const AngularValues& values) { WriteRow(values); }

    void WriteTable(const AngularTable& table) {
        for (const auto& row : table)
            WriteRow(row);
        Line(" }");
    }

    const Project& project;
    OutputBuffer out;
};

} // namespace

void WriteConstructionText(const Project& project, const ByteSink& sink) {
    Writer(project, sink).Run();
}

std::string FormatConstructionFile(const Project& project) {
    std::string bytes;
    WriteConstructionText(project, [&](std::string_view piece) { bytes += piece; });
    return bytes;
}

double ThicknessAsWritten(const Layer& layer) {
    const double wholeMillimetres = std::nearbyint(layer.thickness);
    if (layer.materialCode != resistanceCavity && wholeMillimetres == layer.thickness)
        return wholeMillimetres;
    return LeadingNumber(FormatNumber(layer.thickness / 1000, PatternOfThickness(layer))) * 1000;
}

} // namespace strativo
