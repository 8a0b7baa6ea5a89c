#pragma once

#include "text/Lines.h"

#include <optional>
#include <string>
#include <string_view>

namespace strativo {

/// Takes the lines of a construction file one after the other, cleaned and without their comments.
class CommentedLines {
public:
    explicit CommentedLines(std::string_view bytes) : lines(bytes) {}

    bool AtEnd() const { return lines.AtEnd(); }
    /// Takes the next line. False when nothing is left of it: then its comment is lost.
    bool Next();
    std::string_view Line() const { return line; }
    /// The text after the first asterisk of the line; nothing where it has none.
    std::optional<std::string_view> Comment() const { return comment; }

    /// The lines that follow as they stand, such as those of a table.
    LineReader& Following() { return lines; }
    std::size_t Position() const { return lines.Position(); }

    /// The file is of another format, which no input is taken for.
    bool FormatBad() const { return formatBad; }

private:
    LineReader lines;
    std::string scratch;
    std::string_view line;
    std::optional<std::string_view> comment;
    bool formatBad = false;
};

} // namespace strativo
