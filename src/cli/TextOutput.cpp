#include "cli/TextOutput.h"

#include "text/Printable.h"

#include <algorithm>
#include <ostream>

namespace strativo {

namespace {

std::string Decode(const std::string& text, Encoding encoding) {
    return encoding == Encoding::utf8 ? PathToUtf8(text) : ToUtf8(text);
}

/// Printable ASCII only. The loop has no early exit, so that the compiler can vectorise it.
bool IsPlain(std::string_view bytes) {
    unsigned char largest = 0;
    for (const char c : bytes)
        largest = std::max(largest, static_cast<unsigned char>(c - ' '));
    return largest <= '~' - ' ';
}

} // namespace

std::string MessageText(const Message& message) {
    return Decode(message.text, message.encoding);
}

std::string MessageTitle(const Message& message) {
    return Decode(message.title, message.encoding);
}

std::string ShownText(std::string_view bytes) {
    return IsPlain(bytes) ? std::string(bytes) : Printable(ToUtf8(bytes));
}

void PrintLines(std::ostream& out, const std::vector<std::string>& lines, std::string_view indent) {
    std::size_t size = 0;
    for (const std::string& line : lines)
        size += indent.size() + line.size() + 1;
    std::string text; // a stream takes one piece much faster than many
    text.reserve(size);
    for (const std::string& line : lines) {
        text += indent;
        if (IsPlain(line)) // most lines are, and need no copy
            text += line;
        else
            text += ShownText(line);
        text += '\n';
    }
    out << text;
}

std::string ShownPath(std::string_view path) {
    return Printable(PathToUtf8(path));
}

void PrintError(std::ostream& err, const std::string& utf8) {
    err << programName << ": " << PrintableLine(utf8) << '\n';
}

} // namespace strativo
