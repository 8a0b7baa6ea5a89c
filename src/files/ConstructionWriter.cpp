#include "files/ConstructionWriter.h"

#include "calc/CavityTypes.h"
#include "files/WorkAhead.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>
#include <vector>

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
    Writer(const Project& source, const ByteSink& taker)
        : project(source), sink(taker), out(taker) {}

    void Run() {
        WriteLibraries();
        WritePieces();
        WriteComments(project.comments.noSection);
        out.Flush();
    }

private:
    /// Writes a part of the file.
    using Piece = std::function<void(Writer&)>;

    std::vector<Piece> Pieces() const {
        constexpr int constructions = 100; // so that pieces fit into one buffer, some 50 kB
        constexpr int glassTypes = 64;
        constexpr int glassTypes2D = 8;
        std::vector<Piece> pieces;
        AddPieces(pieces, project.constructions, constructions, &Writer::WriteConstructions);
        AddPieces(pieces, project.glassTypes, glassTypes, &Writer::WriteGlassTypes);
        AddPieces(pieces, project.glassTypes2D, glassTypes2D, &Writer::WriteGlassTypes2D);
        return pieces;
    }

    template <class Record>
    static void AddPieces(std::vector<Piece>& pieces, const NumberedList<Record>& records, int each,
                          void (Writer::*write)(int first, int last)) {
        for (int first = 1; first <= records.Size(); first += each) {
            const int last = std::min(first + each - 1, records.Size());
            pieces.push_back([=](Writer& writer) { (writer.*write)(first, last); });
        }
    }

    void WritePieces() {
        constexpr std::size_t worthIt = 8;
        const std::vector<Piece> pieces = Pieces();
        if (pieces.size() < worthIt || HelpingThreads() == 0) {
            for (const Piece& piece : pieces)
                piece(*this);
        } else {
            WriteAhead(pieces);
        }
    }

    /// Several processors format the pieces, while this one writes them in their order.
    void WriteAhead(const std::vector<Piece>& pieces) {
        constexpr std::size_t distance = 16; // few enough to stay in the processor's cache
        out.Flush();
        WorkAhead<std::string> texts(
            pieces.size(), [&](std::size_t number) { return TextOf(pieces[number]); },
            HelpingThreads(), distance);
        for (std::size_t number = 0; number < pieces.size(); ++number)
            sink(texts.Take(number));
    }

    std::string TextOf(const Piece& piece) const {
        std::string text;
        const ByteSink append = [&text](std::string_view bytes) { text += bytes; };
        Writer writer(project, append);
        piece(writer);
        writer.out.Flush();
        return text;
    }

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

    void WriteConstructions(int first, int last) {
        for (int number = first; number <= last; ++number)
            if (InUse(project, number))
                WriteConstruction(number);
    }

    void WriteGlassTypes(int first, int last) {
        WriteGlass(project.glassTypes, first, last, project.comments.glassTypes, "!WINDOW = '");
    }

    void WriteGlassTypes2D(int first, int last) {
        WriteGlass(project.glassTypes2D, first, last, project.comments.glassTypes2D,
                   "!WINDOW 2D = '");
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
        out.Put(name);
        out.Put("\r\n");
    }

    void WriteThickness(const Layer& layer) {
        out.PutNumber(layer.thickness / 1000, PatternOfThickness(layer));
        if (layer.materialCode != resistanceCavity)
            out.Put("   ");
    }

    template <class Glass>
    void WriteGlass(const NumberedList<Glass>& types, int first, int last,
                    const OwnedComments& comments, std::string_view keyword) {
        for (int number = first; number <= last; ++number) {
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
    const ByteSink& sink;
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
