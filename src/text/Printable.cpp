#include "text/Printable.h"

namespace strativo {

namespace {

void AppendEscape(std::string& out, unsigned char code) {
    constexpr char digits[] = "0123456789ABCDEF";
    out.append("\\u00").append(1, digits[code / 16]).append(1, digits[code % 16]);
}

bool IsLineBreak(char c) {
    return c == '\r' || c == '\n';
}

std::string WithoutLineBreaks(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        line += IsLineBreak(text[i]) ? ' ' : text[i];
        const bool pair = i + 1 < text.size() && IsLineBreak(text[i]) && IsLineBreak(text[i + 1])
                          && text[i] != text[i + 1];
        i += pair ? 1 : 0;
    }
    return line;
}

} // namespace

std::string Printable(std::string_view utf8) {
    constexpr unsigned char leadOfHighControls = 0xC2;
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto code = static_cast<unsigned char>(utf8[i]);
        const unsigned char next =
            i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : '\0';
        if (code < ' ' || code == 0x7F) {
            AppendEscape(out, code);
        } else if (code == leadOfHighControls && next >= 0x80 && next < 0xA0) {
            AppendEscape(out, next);
            ++i;
        } else {
            out += utf8[i];
        }
    }
    return out;
}

std::string PrintableLine(std::string_view utf8) {
    return Printable(WithoutLineBreaks(utf8));
}

} // namespace strativo
