#include "cli/TextOutput.h"

#include "text/Printable.h"

#include <algorithm>
#include <ostream>

namespace strativo {

namespace {

std::string Decode(const std::string& text, Encoding encoding) {
    return encoding == Encoding::utf8 ? PathToUtf8(text) : ToUtf8(text);
}

} // namespace

std::string MessageText(const Message& message) {
    return Decode(message.text, message.encoding);
}

std::string MessageTitle(const Message& message) {
    return Decode(message.title, message.encoding);
}

std::string ShownText(std::string_view bytes) {
    // Most lines are plain ASCII and need no conversion.
    if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= ' ' && c < 127; }))
        return std::string(bytes);
    return Printable(ToUtf8(bytes));
}

std::string ShownPath(std::string_view path) {
    return Printable(PathToUtf8(path));
}

void PrintError(std::ostream& err, const std::string& utf8) {
    err << programName << ": " << PrintableLine(utf8) << '\n';
}

} // namespace strativo
