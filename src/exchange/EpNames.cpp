#include "exchange/EpNames.h"

#include "text/Windows1252.h"

#include <algorithm>
#include <array>

namespace strativo {

namespace {

/// Replacements for the bytes 0x80 to 0xFF; "_" for those that resemble no letter.
constexpr std::array<const char*, 128> likeHighBytes = {
    "_", "_", "_", "f",  "\"", "_", "_",  "_", "_", "_", "S", "_", "OE", "_", "Z",  "_",  // 80
    "_", "'", "'", "\"", "\"", "_", "-",  "-", "_", "_", "s", "_", "oe", "_", "z",  "Y",  // 90
    " ", "_", "_", "_",  "_",  "_", "_",  "_", "_", "_", "_", "_", "_",  "_", "_",  "_",  // A0
    "_", "_", "2", "3",  "_",  "_", "_",  "_", "_", "1", "_", "_", "_",  "_", "_",  "_",  // B0
    "A", "A", "A", "A",  "A",  "A", "AE", "C", "E", "E", "E", "E", "I",  "I", "I",  "I",  // C0
    "D", "N", "O", "O",  "O",  "O", "O",  "_", "O", "U", "U", "U", "U",  "Y", "TH", "ss", // D0
    "a", "a", "a", "a",  "a",  "a", "ae", "c", "e", "e", "e", "e", "i",  "i", "i",  "i",  // E0
    "d", "n", "o", "o",  "o",  "o", "o",  "_", "o", "u", "u", "u", "u",  "y", "th", "y",  // F0
};

std::string WithoutOuterBlanks(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

std::string EpName(std::string_view name) {
    std::string ascii;
    for (const char c : name) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x80)
            ascii += likeHighBytes[code - 0x80U];
        else if (code < ' ' || code == 0x7F || c == ',' || c == ';' || c == '!')
            ascii += '_';
        else
            ascii += c;
    }
    return WithoutOuterBlanks(ascii);
}

std::string EpNames::Take(const std::string& name, const std::string& ending) {
    int& number = lastNumber[LowerCase(name + ending)];
    for (;;) {
        ++number;
        const std::string tail = ending + (number == 1 ? "" : " #" + std::to_string(number));
        const std::size_t room = longest - std::min(longest, tail.size());
        const std::string full = WithoutOuterBlanks(name.substr(0, room)) + tail;
        if (taken.insert(LowerCase(full)).second)
            return full;
    }
}

} // namespace strativo
