#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace strativo {

/// Goes through bytes line by line, without copying them.
class LineReader {
public:
    explicit LineReader(std::string_view bytes) : all(bytes), rest(bytes) {}

    bool AtEnd() const { return rest.empty(); }
    /// The next line without its line feed; the last one may end without.
    std::string_view Next();
    std::size_t Position() const { return all.size() - rest.size(); }
    void GoTo(std::size_t position) { rest = all.substr(position); }

private:
    std::string_view all;
    std::string_view rest;
};

/// Cleans a line: takes it up to its line feed, turns tabs into blanks, and removes carriage
/// returns, end-of-file marks (26) and leading blanks. The result points into the line or into the
/// scratch string.
std::string_view CleanLine(std::string_view line, std::string& scratch);

bool Contains(std::string_view text, std::string_view part);
inline bool Contains(std::string_view text, char part) {
    return text.find(part) != std::string_view::npos;
}

/// The text between the first two apostrophes. Throws run-time error 5 if there are fewer.
std::string_view QuotedText(std::string_view line);

/// Goes through the pieces of a line.
class PieceReader {
public:
    PieceReader(std::string_view line, std::size_t start) : text(line), position(start) {}

    /// Moves to the next character that is not a blank, if there is one.
    void SkipBlanks();
    /// The same, but any code below 33 counts as a blank.
    void SkipBlanksAndControls();
    /// Whether the position is exactly that of the last character.
    bool AtLastCharacter() const { return position + 1 == text.size(); }
    /// The text up to the next blank; throws run-time error 5 if there is none.
    std::string_view PieceBeforeBlank();
    /// The text up to the next blank or the end.
    std::string_view Piece();

private:
    std::string_view text;
    std::size_t position;
};

} // namespace strativo
