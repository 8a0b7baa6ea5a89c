#include "files/ConstructionParser.h"

#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "files/CommentedLines.h"
#include "files/GlassTables.h"
#include "files/PartLine.h"
#include "files/WorkAhead.h"
#include "text/Lines.h"
#include "text/RuntimeError.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

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

bool IsPartLine(std::string_view line) {
    return Contains(line, '_') && Contains(line, '=');
}

enum class Section {
    fileHead,
    standardLibrary,
    userLibrary,
    construction,
    glassType,
    glassType2D,
    none,
    unknown ///< what stands before is not known
};

/// What a line means depends on those before it.
struct ParserState {
    Section section = Section::fileHead;
    bool atEndMark = false;
    bool constructionOpen = false;
    bool glassOpen = false;
    bool glassIs2D = false;
    /// As the last type line said, whatever construction it was in; nothing as long as none is
    /// known.
    std::optional<bool> transparent;
};

/// What reading a piece of the file ahead has given, up to the first line that is left to the
/// parser.
struct Piece {
    std::size_t end = 0; ///< position in the file
    int constructions = 0;
    bool formatSeen = false;
    Project content;
    ParserState state;
};

/// Thrown while reading ahead, at a line that means more than constructions and glass types.
struct LeftToTheParser {};

/// The beginnings of the pieces: lines that begin a construction or a glass type.
std::vector<std::size_t> PieceStarts(std::string_view bytes, std::size_t pieceBytes) {
    std::vector<std::size_t> starts;
    for (auto at = bytes.find("\n!"); at != npos; at = bytes.find("\n!", at)) {
        const std::string_view rest = bytes.substr(++at);
        if (rest.starts_with("!CONSTRUCTION") || rest.starts_with("!WINDOW")) {
            starts.push_back(at);
            at += pieceBytes;
        }
    }
    return starts;
}

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
    Parser(std::string_view fileBytes, Project& target, const ParserEvents& parserEvents)
        : bytes(fileBytes), lines(fileBytes), project(target), events(parserEvents) {}

    ~Parser() { events.progress(bytes.size(), bytes.size()); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    ParsedFile Run(ReadingAhead ahead) {
        state.transparent = false;
        if (ahead.threads > 0)
            pieceStarts = PieceStarts(bytes, ahead.pieceBytes);
        const auto read = [this](std::size_t piece) { return ReadPiece(piece); };
        WorkAhead<std::unique_ptr<Piece>> pieces(pieceStarts.size(), read, ahead.threads,
                                                 pieceStarts.size());
        while (!state.atEndMark && !lines.AtEnd()) {
            if (IsAtPiece() && Adopt(*pieces.Take(nextPiece++)))
                continue;
            ReadLine();
            ReportProgress();
        }
        parsed.formatBad = lines.FormatBad();
        return parsed;
    }

private:
    void ReadLine() {
        if (lines.Next() && Interpret(lines.Line()) && lines.Comment())
            KeepComment(std::string(*lines.Comment()));
    }

    void ReportProgress() {
        constexpr unsigned linesBetweenReports = 4096;
        if (++lineCount % linesBetweenReports == 0)
            events.progress(lines.Position(), bytes.size());
    }

    std::unique_ptr<Piece> ReadPiece(std::size_t number) const {
        auto piece = std::make_unique<Piece>();
        const std::size_t start = pieceStarts[number];
        const bool isLast = number + 1 == pieceStarts.size();
        const std::size_t end = isLast ? bytes.size() : pieceStarts[number + 1];
        ParserEvents none;
        none.createConstruction = [&] { CreateUnnamedConstruction(piece->content); };
        none.layerRefused = [] { throw LeftToTheParser(); };
        Parser(bytes.substr(start, end - start), piece->content, none).ReadConstructions(*piece);
        piece->end += start;
        return piece;
    }

    void ReadConstructions(Piece& piece) {
        isAhead = true;
        state.section = Section::unknown;
        try {
            for (NoteProgress(piece); !lines.AtEnd(); NoteProgress(piece))
                ReadLine();
        } catch (const LeftToTheParser&) {
        } catch (const RuntimeError&) {
            // Whoever reads the line once more throws it again, in its turn.
        }
        piece.state = state;
        piece.formatSeen = parsed.formatSeen;
    }

    void NoteProgress(Piece& piece) const {
        piece.end = lines.Position();
        piece.constructions = project.constructionCount;
    }

    void LeaveToTheParser() const {
        if (isAhead)
            throw LeftToTheParser();
    }

    bool IsAtPiece() {
        const std::size_t position = lines.Position();
        while (nextPiece < pieceStarts.size() && pieceStarts[nextPiece] < position)
            ++nextPiece;
        return nextPiece < pieceStarts.size() && pieceStarts[nextPiece] == position
               && !state.constructionOpen && !state.glassOpen;
    }

    /// Does what reading its lines would do. False when none of them was read.
    bool Adopt(Piece& piece) {
        if (piece.end == lines.Position())
            return false;
        MakeRoom(piece.constructions);
        for (int number = 1; number <= piece.constructions; ++number)
            AdoptConstruction(piece.content, number);
        AdoptGlassTypes(piece.content);
        for (std::string& text : piece.content.comments.noSection)
            project.comments.noSection.push_back(std::move(text));
        project.userLibraryNeeded = project.userLibraryNeeded || piece.content.userLibraryNeeded;
        parsed.formatSeen = parsed.formatSeen || piece.formatSeen;
        if (piece.state.section == Section::unknown)
            piece.state.section = state.section;
        if (!piece.state.transparent)
            piece.state.transparent = state.transparent;
        state = piece.state;
        lines.Following().GoTo(piece.end);
        events.progress(piece.end, bytes.size());
        return true;
    }

    /// A table that grows step by step is moved as often, and holds its content twice meanwhile.
    void MakeRoom(int constructionsInPiece) {
        if (std::exchange(hasRoom, true))
            return;
        constexpr std::size_t usualBytes = 256; // a construction with few layers
        const std::size_t pieces = pieceStarts.size() - nextPiece + 1;
        const std::size_t likely = std::min(
            pieces * static_cast<std::size_t>(constructionsInPiece + 1), bytes.size() / usualBytes);
        project.constructions.Reserve(project.constructions.Size() + static_cast<int>(likely));
    }

    void AdoptConstruction(Project& source, int number) {
        events.createConstruction();
        Construction& read = source.constructions[number];
        Construction& construction = project.constructions[project.currentConstruction];
        construction.name = std::move(read.name);
        construction.layers = std::move(read.layers);
        construction.type = read.type;
        construction.currentLayer = read.currentLayer;
        construction.window.shownThickness = read.window.shownThickness;
        for (const std::string& text : source.comments.constructions.Of(number))
            project.comments.constructions.Add(project.currentConstruction, text);
        parsed.lastConstruction = project.currentConstruction;
    }

    void AdoptGlassTypes(Project& source) {
        const Comments& read = source.comments;
        Comments& own = project.comments;
        // A piece fills its slots in order, so the current type is the last one.
        if (source.glassSectionsRead > 0)
            for (int number = 1; number <= source.currentGlassType; ++number) {
                AddGlassType(project, "");
                AdoptGlassType(source.glassTypes[number], read.glassTypes.Of(number),
                               project.currentGlassType, project.glassTypes, own.glassTypes);
            }
        if (source.glassSectionsRead2D > 0)
            for (int number = 1; number <= source.currentGlassType2D; ++number) {
                AddGlassType2D(project, "");
                AdoptGlassType(source.glassTypes2D[number], read.glassTypes2D.Of(number),
                               project.currentGlassType2D, project.glassTypes2D, own.glassTypes2D);
            }
        project.glassSectionsRead += source.glassSectionsRead;
        project.glassSectionsRead2D += source.glassSectionsRead2D;
    }

    template <class Glass>
    static void AdoptGlassType(Glass& read, const CommentLines& texts, int number,
                               NumberedList<Glass>& types, OwnedComments& comments) {
        types[number] = std::move(read);
        for (const std::string& text : texts)
            comments.Add(number, text);
    }

    /// Dispatches on the first keyword found. False for a line whose comment is not kept.
    bool Interpret(std::string_view line) {
        const KeywordFinder keywords(line);
        if (keywords.HasAny() && ReadKeyword(keywords, line))
            return true;
        if (state.constructionOpen && IsPartLine(line)) {
            ReadPartLine(line);
            return false;
        }
        if (keywords.HasAny() && !Contains(line, '/') && !Contains(line, '}'))
            ReadGlassKeyword(line);
        return true;
    }

    bool ReadKeyword(const KeywordFinder& keywords, std::string_view line) {
        if (keywords.Has("!EOF"))
            ReadEndMark();
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

    void ReadEndMark() {
        LeaveToTheParser();
        state.atEndMark = true;
    }

    void ReadGlassKeyword(std::string_view line) {
        if (Contains(line, "!WINDOW"))
            ReadWindowLine(line);
        else if (state.glassOpen)
            ReadTable(line);
    }

    /// A table goes on over whatever lines follow, also those of the next piece.
    void ReadTable(std::string_view line) {
        ReadAnnouncedTable(line, lines.Following(), project, state.glassIs2D);
        if (lines.AtEnd())
            LeaveToTheParser();
    }

    void ReadPartLine(std::string_view line) {
        if (!state.transparent)
            LeaveToTheParser();
        if (!ParsePartLine(line, *state.transparent, project))
            events.layerRefused();
    }

    void ReadUserLibraryLine(std::string_view line) {
        LeaveToTheParser();
        if (auto path = QuotedValue(line))
            project.userLibraryFile = std::move(*path);
        parsed.userLineSeen = true;
        state.section = Section::userLibrary;
    }

    void ReadStandardLibraryLine(std::string_view line) {
        LeaveToTheParser();
        if (auto path = QuotedValue(line))
            project.standardLibraryFile = std::move(*path);
        parsed.standardLineSeen = true;
        state.section = Section::standardLibrary;
    }

    void ReadConstructionLine(std::string_view line) {
        events.createConstruction();
        if (auto name = QuotedValue(line))
            project.constructions[project.currentConstruction].name = std::move(*name);
        parsed.lastConstruction = project.currentConstruction;
        state.constructionOpen = true;
        state.section = Section::construction;
    }

    void ReadTypeLine(std::string_view line) {
        state.transparent = Contains(line, "TRANSPARENT");
        if (*state.transparent && state.constructionOpen)
            project.constructions[project.currentConstruction].type = transparentType;
    }

    void ReadEndLine() {
        if (state.constructionOpen)
            state.constructionOpen = false;
        else if (state.glassOpen)
            state.glassOpen = false;
        else
            return;
        state.section = state.glassOpen ? GlassSection() : Section::none;
    }

    Section GlassSection() const {
        return state.glassIs2D ? Section::glassType2D : Section::glassType;
    }

    void ReadWindowLine(std::string_view line) {
        const std::string name = QuotedValue(line).value_or("");
        parsed.formatSeen = true;
        state.glassIs2D = IsSection2D(line);
        if (state.glassIs2D) {
            AddGlassType2D(project, name);
            ++project.glassSectionsRead2D;
        } else {
            AddGlassType(project, name);
            ++project.glassSectionsRead;
        }
        state.glassOpen = true;
        state.section = GlassSection();
    }

    void KeepComment(std::string text) {
        Comments& comments = project.comments;
        switch (state.section) {
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
        case Section::unknown:
            LeaveToTheParser();
            break;
        case Section::none:
            comments.noSection.push_back(std::move(text));
            break;
        }
    }

    std::string_view bytes;
    CommentedLines lines;
    Project& project;
    const ParserEvents& events;
    ParsedFile parsed;
    unsigned lineCount = 0;
    ParserState state;
    std::vector<std::size_t> pieceStarts; ///< of those that are read ahead
    std::size_t nextPiece = 0;
    bool hasRoom = false;
    bool isAhead = false;
};

} // namespace

ReadingAhead UsualReadingAhead(std::size_t bytes) {
    constexpr std::size_t pieceBytes = std::size_t{1} << 17;
    constexpr std::size_t worthIt = 4 * pieceBytes;
    return {bytes < worthIt ? 0 : HelpingThreads(), pieceBytes};
}

ParsedFile ParseConstructionFile(std::string_view bytes, Project& project,
                                 const ParserEvents& events, ReadingAhead ahead) {
    return Parser(bytes, project, events).Run(ahead);
}

} // namespace strativo
