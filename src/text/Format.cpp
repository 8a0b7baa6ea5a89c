#include "text/Format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace strativo {

namespace {

/// The significant digits of the number 0.ddd * 10^point.
struct Decimal {
    std::array<char, 20> digits{};
    int count = 0;
    int point = 0;

    char Digit(int index) const {
        return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
    }
};

Decimal ShortestDecimal(double value) {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific);
    Decimal decimal;
    const char* c = text.data();
    for (; c != end.ptr && *c != 'e'; ++c)
        if (*c != '.')
            decimal.digits[static_cast<std::size_t>(decimal.count++)] = *c;
    const char* exponent = c + (c[1] == '+' ? 2 : 1);
    std::from_chars(exponent, end.ptr, decimal.point);
    ++decimal.point;
    if (decimal.digits[0] == '0')
        decimal = Decimal();
    return decimal;
}

/// Keeps that many leading digits (possibly none or fewer), rounding half up.
void RoundTo(Decimal& decimal, int keep) {
    if (keep >= decimal.count)
        return;
    const bool up = decimal.Digit(keep) >= '5';
    decimal.count = std::max(keep, 0);
    int last = decimal.count - 1;
    while (up && last >= 0 && decimal.digits[static_cast<std::size_t>(last)] == '9')
        --last;
    if (up && last >= 0) {
        ++decimal.digits[static_cast<std::size_t>(last)];
        decimal.count = last + 1;
    } else if (up) {
        // All kept digits were nines: the number becomes a one with one more place.
        decimal.digits[0] = '1';
        decimal.point += 1;
        decimal.count = 1;
    }
    while (decimal.count > 0 && decimal.Digit(decimal.count - 1) == '0')
        --decimal.count;
    if (decimal.count == 0)
        decimal = Decimal();
}

void AppendPlain(std::string& out, const Decimal& decimal, const NumberPattern& pattern) {
    const int whole = std::max(decimal.point, pattern.minWhole);
    for (int place = whole; place > 0; --place)
        out += decimal.Digit(decimal.point - place);
    const int needed = decimal.count - decimal.point;
    const int decimals = std::clamp(needed, pattern.minDecimals, pattern.maxDecimals);
    if (pattern.maxDecimals > 0)
        out += '.';
    for (int place = 0; place < decimals; ++place)
        out += decimal.Digit(decimal.point + place);
}

void AppendExponent(std::string& out, Decimal decimal) {
    RoundTo(decimal, 1);
    const int exponent = decimal.count == 0 ? 0 : decimal.point - 1;
    const std::string digits = std::to_string(std::abs(exponent));
    out += decimal.Digit(0);
    out += exponent < 0 ? "E-" : "E+";
    out += digits.size() < 2 ? "0" + digits : digits;
}

constexpr std::array<double, 7> powersOfTen = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};

/// Writes the value in decimal with that many digits, including leading zeros; returns the end of
/// the text.
char* PutDigits(char* place, std::uint32_t value, int count) {
    for (char* digit = place + count; digit != place; value /= 10)
        *--digit = static_cast<char>('0' + value % 10);
    return place + count;
}

/// Number of digits without leading zeros; 0 has none.
int DigitCount(std::uint32_t value) {
    int count = 0;
    for (std::uint64_t bound = 1; bound <= value; bound *= 10)
        ++count;
    return count;
}

/// Formats a number whose decimals are given as a whole number; they have the pattern's maximum of
/// digits.
char* PutParts(char* place, std::uint32_t whole, std::uint32_t decimals,
               const NumberPattern& pattern) {
    char* end = PutDigits(place, whole, std::max(DigitCount(whole), pattern.minWhole));
    if (pattern.maxDecimals == 0)
        return end;
    *end++ = '.';
    end = PutDigits(end, decimals, pattern.maxDecimals);
    for (int shown = pattern.maxDecimals; shown > pattern.minDecimals && end[-1] == '0'; --shown)
        --end;
    return end;
}

/// Writing spends most of its time here. Unless the scaled value is close to a rounding half, whole
/// numbers give the same digits as the shortest decimal does. Null if it is close.
char* TryScaled(char* place, double magnitude, const NumberPattern& pattern) {
    constexpr double largest = 1e9;
    constexpr double clearOfHalf = 1e-6;
    const auto places = static_cast<std::size_t>(pattern.maxDecimals);
    if (pattern.exponent || places >= powersOfTen.size())
        return nullptr;
    const double scaled = magnitude * powersOfTen[places];
    if (!(scaled < largest))
        return nullptr;
    const auto below = static_cast<std::uint32_t>(scaled);
    const double rest = scaled - static_cast<double>(below);
    if (std::abs(rest - 0.5) < clearOfHalf)
        return nullptr;
    // Without a division, which would take as long as all the digits.
    const auto unit = static_cast<std::uint32_t>(powersOfTen[places]);
    auto whole = static_cast<std::uint32_t>(magnitude);
    std::uint32_t decimals = below + (rest > 0.5 ? 1 : 0) - whole * unit;
    if (decimals >= unit) {
        decimals -= unit;
        ++whole;
    }
    return PutParts(place, whole, decimals, pattern);
}

std::string FormatDecimal(double magnitude, const NumberPattern& pattern) {
    std::string out;
    Decimal decimal = ShortestDecimal(magnitude);
    if (pattern.exponent) {
        AppendExponent(out, decimal);
        return out;
    }
    RoundTo(decimal, decimal.point + pattern.maxDecimals);
    AppendPlain(out, decimal, pattern);
    return out;
}

/// Apart from the usual way, which needs no memory of its own.
[[gnu::noinline]] char* PutExactly(char* place, double magnitude, const NumberPattern& pattern) {
    const std::string digits = FormatDecimal(magnitude, pattern);
    return std::copy(digits.begin(), digits.end(), place);
}

} // namespace

char* PutNumber(char* place, double value, NumberPattern pattern) {
    if (value < 0)
        *place++ = '-';
    const double magnitude = std::abs(value);
    char* const end = TryScaled(place, magnitude, pattern);
    return end != nullptr ? end : PutExactly(place, magnitude, pattern);
}

std::string FormatNumber(double value, NumberPattern pattern) {
    std::array<char, longestNumber> text;
    return std::string(text.data(), PutNumber(text.data(), value, pattern));
}

std::string FormatGeneral(double value) {
    std::array<char, 32> text{};
    constexpr double plainLimit = 1e15;
    const auto format = std::abs(value) < plainLimit && value == std::floor(value)
                            ? std::chars_format::fixed
                            : std::chars_format::general;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, format).ptr;
    return std::string(text.data(), end);
}

std::string LeftField(std::string_view text, std::size_t maxLength, std::size_t width) {
    std::string field(text.substr(0, maxLength));
    field.resize(std::max(width, field.size()), ' ');
    return field;
}

std::string RightField(std::string_view text, std::size_t width) {
    std::string field(text.size() < width ? width - text.size() : 0, ' ');
    field += text;
    return field;
}

std::string SignPositionNumber(int number) {
    const std::string digits = std::to_string(number);
    return number < 0 ? digits : " " + digits;
}

} // namespace strativo
