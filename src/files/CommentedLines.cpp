#include "files/CommentedLines.h"

namespace strativo {

bool CommentedLines::Next() {
    const std::string_view cleaned = CleanLine(lines.Next(), scratch);
    const auto star = cleaned.find('*');
    line = cleaned.substr(0, star);
    comment.reset();
    if (star != std::string_view::npos)
        comment = cleaned.substr(star + 1);
    return !line.empty();
}

} // namespace strativo
