#include "text/Windows1252.h"

#include <algorithm>
#include <array>

namespace strativo {

namespace {

/// Code points of the bytes 0x80 to 0x9F; the five undefined ones keep their number.
constexpr std::array<char16_t, 32> highTable = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char SmallLetter(char letter) {
    const auto code = static_cast<unsigned char>(letter);
    constexpr unsigned char multiplicationSign = 0xD7;
    constexpr unsigned char capitalYWithDiaeresis = 0x9F;
    const bool plain = code >= 'A' && code <= 'Z';
    const bool marked = code >= 0xC0 && code <= 0xDE && code != multiplicationSign;
    if (plain || marked)
        return static_cast<char>(code + 0x20);
    if (code == 0x8A || code == 0x8C || code == 0x8E)
        return static_cast<char>(code + 0x10);
    return code == capitalYWithDiaeresis ? static_cast<char>(0xFF) : letter;
}

std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2)
        return 0;
    if (lead < 0xE0)
        return 2;
    if (lead < 0xF0)
        return 3;
    return lead < 0xF5 ? 4 : 0;
}

bool IsAllowed(char32_t code, std::size_t length) {
    constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    return code >= smallest[length] && code <= 0x10FFFF && !surrogate;
}

} // namespace

char16_t CodePoint(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 0x80 && code < 0xA0 ? highTable[code - 0x80U] : code;
}

std::optional<char> ByteOf(char32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code < 0x100))
        return static_cast<char>(code);
    const auto* const found = std::find(highTable.begin(), highTable.end(), code);
    if (found == highTable.end())
        return std::nullopt;
    return static_cast<char>(0x80 + (found - highTable.begin()));
}

void AppendUtf8(std::string& out, char32_t code) {
    const auto following = [&](unsigned shift) {
        out += static_cast<char>(0x80 | ((code >> shift) & 0x3F));
    };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        following(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        following(6);
        following(0);
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        following(12);
        following(6);
        following(0);
    }
}

std::optional<char32_t> TakeCodePoint(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = SequenceLength(lead);
    if (length == 0 || length > utf8.size())
        return std::nullopt;
    char32_t code = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[i]);
        if ((next & 0xC0U) != 0x80)
            return std::nullopt;
        code = (code << 6) | (next & 0x3FU);
    }
    if (!IsAllowed(code, length))
        return std::nullopt;
    utf8.remove_prefix(length);
    return code;
}

std::string ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (const char byte : bytes)
        AppendUtf8(out, CodePoint(byte));
    return out;
}

std::string FromUtf8(std::string_view utf8) {
    std::string out;
    while (!utf8.empty()) {
        const auto code = TakeCodePoint(utf8);
        out += code ? ByteOf(*code).value_or('?') : '?';
        if (!code)
            utf8.remove_prefix(1);
    }
    return out;
}

std::string LowerCase(std::string_view bytes) {
    std::string lower(bytes);
    std::transform(lower.begin(), lower.end(), lower.begin(), SmallLetter);
    return lower;
}

bool IsValidUtf8(std::string_view bytes) {
    while (!bytes.empty())
        if (!TakeCodePoint(bytes))
            return false;
    return true;
}

std::string PathToUtf8(std::string_view path) {
    return IsValidUtf8(path) ? std::string(path) : ToUtf8(path);
}

} // namespace strativo
