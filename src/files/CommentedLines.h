#pragma once

#include "text/Lines.h"

#include <optional>
#include <string>
#include <string_view>

namespace strativo {

/// Goes through the lines of a construction file, cleaned and without their comments.
class CommentedLines {
public:
    explicit CommentedLines(std::string_view bytes) : lines(bytes) {}

    bool AtEnd() const { return lines.AtEnd(); }
    /// Goes to the next line. False when nothing of it is left after cleaning; its comment is lost
    /// then.
    bool Next();
    std::string_view Line() const { return line; }
    /// The text after the first asterisk of the line; nothing if there is none.
    std::optional<std::string_view> Comment() const { return comment; }

    /// The lines that follow, unchanged, for parts such as tables.
    LineReader& Following() { return lines; }
    std::size_t Position() const { return lines.Position(); }

    /// Whether the file is of another format; no input leads to that.
    bool FormatBad() const { return formatBad; }

private:
    LineReader lines;
    std::string scratch;
    std::string_view line;
    std::optional<std::string_view> comment;
    bool formatBad = false;
};

} // namespace strativo
