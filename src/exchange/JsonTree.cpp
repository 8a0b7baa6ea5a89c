#include "exchange/JsonTree.h"

#include "text/Windows1252.h"

#include <algorithm>

namespace strativo {

namespace {

char Unescaped(char letter) {
    switch (letter) {
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return letter;
    }
}

char32_t HexValue(std::string_view digits) {
    char32_t value = 0;
    for (const char c : digits)
        value = 16 * value + static_cast<char32_t>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
    return value;
}

/// Reads the code point of an escape sequence after "\u", including its second half if there is
/// one.
char32_t TakeUnicodeEscape(std::string_view& raw) {
    constexpr std::size_t digits = 4;
    char32_t code = HexValue(raw.substr(0, digits));
    raw.remove_prefix(digits);
    if (code >= 0xD800 && code < 0xDC00) {
        const char32_t low = HexValue(raw.substr(2, digits));
        code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
        raw.remove_prefix(2 + digits);
    }
    return code;
}

} // namespace

std::string JsonValue::Text() const {
    std::string_view raw = Raw();
    if (!Node().escaped)
        return std::string(raw);
    std::string text;
    while (!raw.empty()) {
        const auto plain = std::min(raw.find('\\'), raw.size());
        text += raw.substr(0, plain);
        raw.remove_prefix(plain);
        if (raw.empty())
            break;
        const char letter = raw[1];
        raw.remove_prefix(2);
        if (letter == 'u')
            AppendUtf8(text, TakeUnicodeEscape(raw));
        else
            text += Unescaped(letter);
    }
    return text;
}

std::size_t JsonValue::ItemCount() const {
    std::size_t count = 0;
    ForEachItem([&](const JsonValue&) { ++count; });
    return count;
}

std::string PointerPart(std::string_view key) {
    std::string part = "/";
    for (const char c : key) {
        if (c == '~')
            part += "~0";
        else if (c == '/')
            part += "~1";
        else
            part += c;
    }
    return part;
}

} // namespace strativo
