#include "files/ConstructionWriter.h"

#include "calc/CavityTypes.h"
#include "text/Format.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

namespace strativo {

namespace {

// Named, so that the patterns are taken apart by the compiler and not for each number.
constexpr NumberPattern materialPattern = "##0";
constexpr NumberPattern thicknessPattern = "#0.000";
constexpr NumberPattern resistancePattern = "#0.000000";
constexpr NumberPattern absorptionPattern = "0.00";
constexpr NumberPattern glassPattern = "0.0##";

/// About as many bytes as the file will have, a little more as a rule: a string that grows while it
/// is written is copied again and again.
std::size_t ExpectedSize(const Project& project) {
    constexpr std::size_t head = 4096;
    constexpr std::size_t perConstruction = 128;
    constexpr std::size_t perLayer = 80;
    constexpr std::size_t perGlassType = 512;
    constexpr std::size_t perGlassType2D = 8192;
    std::size_t size = head;
    for (const Construction& construction : project.constructions)
        size += perConstruction
                + perLayer * static_cast<std::size_t>(construction.layers.HighestUsed());
    return size + perGlassType * static_cast<std::size_t>(project.glassTypes.Size())
           + perGlassType2D * static_cast<std::size_t>(project.glassTypes2D.Size());
}

class Writer {
public:
    explicit Writer(const Project& source) : project(source) {}

    std::string Run() {
        out.reserve(ExpectedSize(project));
        WriteLibraries();
        for (int number = 1; number <= project.constructions.Size(); ++number)
            if (InUse(project, number))
                WriteConstruction(number);
        WriteGlassTypes(project.glassTypes, project.comments.glassTypes, "!WINDOW = '");
        WriteGlassTypes(project.glassTypes2D, project.comments.glassTypes2D, "!WINDOW 2D = '");
        WriteComments(project.comments.noSection);
        return std::move(out);
    }

private:
    void Line(std::string_view a, std::string_view b = "", std::string_view c = "") {
        out.append(a).append(b).append(c).append("\r\n");
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
        for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
            if (!construction.layers[slot].name.empty())
                WritePart(construction.layers[slot], slot, transparent);
        Line("!END");
        Line("");
    }

    void WritePart(const Layer& layer, int slot, bool transparent) {
        out += "_ ";
        AppendInteger(out, slot);
        out += layer.library == userLibraryNumber ? " =      @" : " =       ";
        WriteMaterialNumber(layer);
        out += "      ";
        WriteThickness(layer);
        out += "   0      ";
        if (transparent)
            AppendNumber(out, layer.absorption, absorptionPattern);
        WriteLayerName(layer.name);
    }

    /// A cavity is written by its conductivity, which holds its code. That of another layer without
    /// a number may be any, but one beyond 16 bits would make the file unreadable.
    void WriteMaterialNumber(const Layer& layer) {
        using Limits = std::numeric_limits<std::int16_t>;
        if (layer.materialCode > 0)
            AppendInteger(out, layer.materialCode);
        else
            AppendNumber(out, std::clamp<double>(layer.conductivity, Limits::min(), Limits::max()),
                         materialPattern);
    }

    /// A quoted name of a user library may go over lines, a comment may not.
    void WriteLayerName(const std::string& name) {
        out += "      * ";
        const auto start = static_cast<std::ptrdiff_t>(out.size());
        out += name;
        std::replace(out.begin() + start, out.end(), '\n', ' ');
        Line("");
    }

    void WriteThickness(const Layer& layer) {
        const double metres = layer.thickness / 1000;
        if (layer.materialCode == resistanceCavity) {
            AppendNumber(out, metres, resistancePattern);
            return;
        }
        AppendNumber(out, metres, thicknessPattern);
        out += "   ";
    }

    template <class Glass>
    void WriteGlassTypes(const NumberedList<Glass>& types, const OwnedComments& comments,
                         std::string_view keyword) {
        for (int number = 1; number <= types.Size(); ++number) {
            const Glass& type = types[number];
            if (type.name.empty())
                continue;
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
            out += separator;
            AppendNumber(out, value, glassPattern);
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
    std::string out;
};

} // namespace

std::string FormatConstructionFile(const Project& project) {
    return Writer(project).Run();
}

} // namespace strativo
