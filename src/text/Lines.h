#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace strativo {

/// Takes bytes line by line, without copying them.
class LineReader {
public:
    explicit LineReader(std::string_view bytes) : all(bytes), rest(bytes) {}

    bool AtEnd() const { return rest.empty(); }
    /// The next line, up to a line feed (which is taken but not returned) or the end.
    std::string_view Next();
    std::size_t Position() const { return all.size() - rest.size(); }

private:
    std::string_view all;
    std::string_view rest;
};

/// The line up to its line feed with tabs as blanks, carriage returns and end-of-file marks (26)
/// removed and leading blanks cut. The result lives in the line or in the scratch string.
std::string_view CleanLine(std::string_view line, std::string& scratch);

bool Contains(std::string_view text, std::string_view part);
inline bool Contains(std::string_view text, char part) {
    return text.find(part) != std::string_view::npos;
}

/// The text between the first apostrophe and the next one. Run-time error 5 without both.
std::string_view QuotedText(std::string_view line);

/// A position in a line from which its pieces are taken one after the other.
class PieceReader {
public:
    PieceReader(std::string_view line, std::size_t start) : text(line), position(start) {}

    /// Moves on to the next character that is no blank, if there is one.
    void SkipBlanks();
    /// The same, but any code below 33 counts as a blank.
    void SkipBlanksAndControls();
    /// Stands exactly on the last character.
    bool AtLastCharacter() const { return position + 1 == text.size(); }
    /// The text up to the next blank; run-time error 5 when no blank follows.
    std::string_view PieceBeforeBlank();
    /// The text up to the next blank or to the end.
    std::string_view Piece();

private:
    std::string_view text;
    std::size_t position;
};

} // namespace strativo
