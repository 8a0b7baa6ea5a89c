#include "files/ConstructionParser.h"

#include "calc/LayerList.h"
#include "edit/GlassTypes.h"
#include "files/CommentedLines.h"
#include "files/GlassTables.h"
#include "text/Lines.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

#include <cmath>
#include <optional>

namespace strativo {

namespace {

constexpr auto npos = std::string_view::npos;

/// The text between the apostrophes; nothing when fewer than two characters follow the first one,
/// so that an empty pair leaves the stored text alone.
std::optional<std::string> QuotedValue(std::string_view line) {
    const auto open = line.find('\'');
    if (open != npos && open + 2 >= line.size())
        return std::nullopt;
    return std::string(QuotedText(line));
}

enum class Section {
    fileHead,
    standardLibrary,
    userLibrary,
    construction,
    glassType,
    glassType2D,
    none
};

/// Finds keywords, which start with an exclamation mark. Nearly all lines have at most one mark, so
/// a line is scanned once and not once per keyword.
class KeywordFinder {
public:
    explicit KeywordFinder(std::string_view line) {
        const auto mark = line.find('!');
        if (mark == npos)
            return;
        first = line.substr(mark);
        const auto next = first.find('!', 1);
        if (next != npos)
            others = first.substr(next);
    }

    bool HasAny() const { return !first.empty(); }
    bool Has(std::string_view keyword) const {
        return first.starts_with(keyword) || (!others.empty() && Contains(others, keyword));
    }

private:
    std::string_view first;  ///< the line from its first mark on
    std::string_view others; ///< the line from its second mark on
};

class Parser {
public:
    Parser(std::string_view bytes, Project& target, const ParserEvents& parserEvents)
        : total(bytes.size()), lines(bytes), project(target), events(parserEvents) {}

    ~Parser() { events.progress(total, total); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    ParsedFile Run() {
        while (!atEndMark && !lines.AtEnd()) {
            if (lines.Next() && Interpret(lines.Line()) && lines.Comment())
                KeepComment(std::string(*lines.Comment()));
            ReportProgress();
        }
        parsed.formatBad = lines.FormatBad();
        return parsed;
    }

private:
    void ReportProgress() {
        constexpr unsigned linesBetweenReports = 4096;
        if (++lineCount % linesBetweenReports == 0)
            events.progress(lines.Position(), total);
    }

    /// Dispatches on the first keyword found. False for a line whose comment is not kept.
    bool Interpret(std::string_view line) {
        const KeywordFinder keywords(line);
        if (keywords.HasAny() && ReadKeyword(keywords, line))
            return true;
        if (constructionOpen && Contains(line, '_') && Contains(line, '=')) {
            if (!ParsePartLine(line, transparent, project))
                events.layerRefused();
            return false;
        }
        if (keywords.HasAny() && !Contains(line, '/') && !Contains(line, '}'))
            ReadGlassKeyword(line);
        return true;
    }

    bool ReadKeyword(const KeywordFinder& keywords, std::string_view line) {
        if (keywords.Has("!EOF"))
            atEndMark = true;
        else if (keywords.Has("!MATERIALS USER FILE"))
            ReadUserLibraryLine(line);
        else if (keywords.Has("!MATERIALS FILE"))
            ReadStandardLibraryLine(line);
        else if (keywords.Has("!CONSTRUCTION"))
            ReadConstructionLine(line);
        else if (keywords.Has("!TYPE"))
            ReadTypeLine(line);
        else if (keywords.Has("!END"))
            ReadEndLine();
        else
            return false;
        parsed.formatSeen = true;
        return true;
    }

    void ReadGlassKeyword(std::string_view line) {
        if (Contains(line, "!WINDOW"))
            ReadWindowLine(line);
        else if (glassOpen)
            ReadAnnouncedTable(line, lines.Following(), project, glassIs2D);
    }

    void ReadUserLibraryLine(std::string_view line) {
        if (auto path = QuotedValue(line))
            project.userLibraryFile = std::move(*path);
        parsed.userLineSeen = true;
        section = Section::userLibrary;
    }

    void ReadStandardLibraryLine(std::string_view line) {
        if (auto path = QuotedValue(line))
            project.standardLibraryFile = std::move(*path);
        parsed.standardLineSeen = true;
        section = Section::standardLibrary;
    }

    void ReadConstructionLine(std::string_view line) {
        events.createConstruction();
        if (auto name = QuotedValue(line))
            project.constructions[project.currentConstruction].name = std::move(*name);
        parsed.lastConstruction = project.currentConstruction;
        constructionOpen = true;
        section = Section::construction;
    }

    void ReadTypeLine(std::string_view line) {
        transparent = Contains(line, "TRANSPARENT");
        if (transparent && constructionOpen)
            project.constructions[project.currentConstruction].type = transparentType;
    }

    void ReadEndLine() {
        if (constructionOpen)
            constructionOpen = false;
        else if (glassOpen)
            glassOpen = false;
        else
            return;
        section = glassOpen ? GlassSection() : Section::none;
    }

    Section GlassSection() const { return glassIs2D ? Section::glassType2D : Section::glassType; }

    void ReadWindowLine(std::string_view line) {
        const std::string name = QuotedValue(line).value_or("");
        parsed.formatSeen = true;
        glassIs2D = IsSection2D(line);
        if (glassIs2D) {
            AddGlassType2D(project, name);
            ++project.glassSectionsRead2D;
        } else {
            AddGlassType(project, name);
            ++project.glassSectionsRead;
        }
        glassOpen = true;
        section = GlassSection();
    }

    void KeepComment(std::string text) {
        Comments& comments = project.comments;
        switch (section) {
        case Section::fileHead:
            comments.fileHead.push_back(std::move(text));
            break;
        case Section::standardLibrary:
            comments.standardLibrary.push_back(std::move(text));
            break;
        case Section::userLibrary:
            comments.userLibrary.push_back(std::move(text));
            break;
        case Section::construction:
            comments.constructions.Add(project.currentConstruction, std::move(text));
            break;
        case Section::glassType:
            comments.glassTypes.Add(project.currentGlassType, std::move(text));
            break;
        case Section::glassType2D:
            comments.glassTypes2D.Add(project.currentGlassType2D, std::move(text));
            break;
        case Section::none:
            comments.noSection.push_back(std::move(text));
            break;
        }
    }

    std::size_t total;
    CommentedLines lines;
    Project& project;
    const ParserEvents& events;
    ParsedFile parsed;
    unsigned lineCount = 0;
    Section section = Section::fileHead;
    bool atEndMark = false;
    bool constructionOpen = false;
    bool glassOpen = false;
    bool glassIs2D = false;
    bool transparent = false; ///< as the last type line said, whatever construction it was in
};

/// Where the material number of a part line starts, and which library it refers to.
PieceReader MaterialNumber(std::string_view line, Layer& layer) {
    const auto at = line.find('@');
    layer.library =
        static_cast<std::int16_t>(at == npos ? standardLibraryNumber : userLibraryNumber);
    const auto equals = line.find('=');
    if (at == npos && equals == npos)
        throw RuntimeError(ErrorNumber::invalidArgument);
    PieceReader reader(line, (at == npos ? equals : at) + 1);
    if (at == npos)
        reader.SkipBlanks();
    return reader;
}

double Millimetres(double metres) {
    const double millimetres = metres * 1000;
    if (!std::isfinite(millimetres))
        throw RuntimeError(ErrorNumber::overflow);
    return millimetres;
}

Layer ReadPart(std::string_view line, bool transparent) {
    Layer layer;
    PieceReader reader = MaterialNumber(line, layer);
    if (reader.AtLastCharacter())
        return layer;
    layer.materialCode = ToInteger(LeadingNumber(reader.PieceBeforeBlank()));
    if (layer.materialCode < 0)
        layer.conductivity = layer.materialCode;
    reader.SkipBlanksAndControls();
    layer.thickness = Millimetres(LeadingNumber(reader.Piece()));
    if (transparent) {
        reader.SkipBlanks();
        reader.Piece(); // a constant column of the simulation program
        reader.SkipBlanks();
        layer.absorption = ToSingle(LeadingNumber(reader.Piece()));
    }
    return layer;
}

} // namespace

ParsedFile ParseConstructionFile(std::string_view bytes, Project& project,
                                 const ParserEvents& events) {
    return Parser(bytes, project, events).Run();
}

bool ParsePartLine(std::string_view line, bool transparent, Project& project) {
    // Before the numbers, which may be malformed, are read.
    project.userLibraryNeeded = project.userLibraryNeeded || Contains(line, '@');
    Layer layer = ReadPart(line, transparent);
    Construction& construction = project.constructions[project.currentConstruction];
    const int slot = construction.layers.HighestUsed() + 1;
    if (slot > maxLayers)
        return false;
    layer.name = std::to_string(slot); // placeholder until the layer is linked to its library
    construction.layers.Edit(slot) = std::move(layer);
    construction.currentLayer = static_cast<std::int16_t>(slot);
    RefreshLayerList(construction);
    return true;
}

} // namespace strativo
