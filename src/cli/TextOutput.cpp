#include "cli/TextOutput.h"

#include <ostream>

namespace strativo {

namespace {

std::string Decode(const std::string& text, Encoding encoding) {
    return encoding == Encoding::utf8 ? PathToUtf8(text) : ToUtf8(text);
}

bool IsLineBreak(char c) {
    return c == '\r' || c == '\n';
}

} // namespace

std::string MessageText(const Message& message) {
    return Decode(message.text, message.encoding);
}

std::string MessageTitle(const Message& message) {
    return Decode(message.title, message.encoding);
}

std::string OneLine(const std::string& text) {
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        line += IsLineBreak(text[i]) ? ' ' : text[i];
        const bool pair = i + 1 < text.size() && IsLineBreak(text[i]) && IsLineBreak(text[i + 1])
                          && text[i] != text[i + 1];
        i += pair ? 1 : 0;
    }
    return line;
}

void PrintError(std::ostream& err, const std::string& utf8) {
    err << programName << ": " << OneLine(utf8) << '\n';
}

} // namespace strativo
