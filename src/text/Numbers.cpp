#include "text/Numbers.h"

#include "text/RuntimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace strativo {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view SkipBlanks(std::string_view text) {
    while (!text.empty() && (text[0] == ' ' || text[0] == '\t'))
        text.remove_prefix(1);
    return text;
}

std::string_view SkipSign(std::string_view text) {
    return !text.empty() && (text[0] == '+' || text[0] == '-') ? text.substr(1) : text;
}

bool StartsWithDigits(std::string_view text) {
    if (!text.empty() && text[0] == '.')
        text.remove_prefix(1);
    return !text.empty() && IsDigit(text[0]);
}

/// The number of digits in front of the text; the value goes on with them.
std::size_t ReadDigits(std::string_view text, std::uint64_t& value) {
    std::uint64_t number = value;
    std::size_t count = 0;
    for (; count < text.size() && IsDigit(text[count]); ++count)
        number = 10 * number + static_cast<std::uint64_t>(text[count] - '0');
    value = number;
    return count;
}

/// The powers of ten of so few digits that any number of so many digits is exact.
constexpr std::array<double, 16> powersOfTen = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Takes a number off the text that has no exponent and so few digits that they and their power of
/// ten are exact: one division rounds it as it should be. Nearly all numbers of a file are of this
/// kind, and from_chars takes several times as long for them.
std::optional<double> ShortDecimal(std::string_view& text) {
    std::uint64_t value = 0;
    std::size_t length = ReadDigits(text, value);
    std::size_t decimals = 0;
    std::size_t digits = length;
    if (length < text.size() && text[length] == '.') {
        decimals = ReadDigits(text.substr(length + 1), value);
        digits += decimals;
        length += 1 + decimals;
    }
    text.remove_prefix(length);
    if (digits >= powersOfTen.size() || text.starts_with('e') || text.starts_with('E'))
        return std::nullopt;
    return static_cast<double>(static_cast<std::int64_t>(value)) / powersOfTen[decimals];
}

/// The exponent of ten that a number is written with; a very large one is cut short.
std::int64_t WrittenExponent(std::string_view exponent) {
    constexpr std::int64_t farBeyond = 1'000'000'000'000;
    const bool negative = exponent.starts_with('-');
    const std::string_view digits = SkipSign(exponent);
    std::int64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = farBeyond;
    return negative ? -value : value;
}

/// from_chars reports overflow and underflow alike; where the first digit that counts stands tells
/// them apart.
bool Underflows(std::string_view number) {
    const auto mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    const std::string_view exponent = number.substr(std::min(mantissaEnd + 1, number.size()));
    return point - first + WrittenExponent(exponent) < 0;
}

/// The number that the digits start with, 0 for one too small.
double AnyNumber(std::string_view digits) {
    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    const auto length = static_cast<std::size_t>(result.ptr - digits.data());
    if (!Underflows(digits.substr(0, length)))
        throw RuntimeError(ErrorNumber::overflow);
    return 0;
}

} // namespace

bool IsNumber(std::string_view text) {
    const std::string_view digits = SkipSign(text);
    if (!StartsWithDigits(digits))
        return false;
    std::string_view rest = digits;
    if (ShortDecimal(rest) && rest.empty())
        return true;
    const char* const end = digits.data() + digits.size();
    double value = 0;
    return std::from_chars(digits.data(), end, value).ptr == end;
}

double LeadingNumber(std::string_view text) {
    const std::string_view number = SkipBlanks(text);
    const std::string_view digits = SkipSign(number);
    if (!StartsWithDigits(digits))
        return 0;
    std::string_view rest = digits;
    const std::optional<double> decimal = ShortDecimal(rest);
    const double value = decimal ? *decimal : AnyNumber(digits);
    return number[0] == '-' ? -value : value;
}

float ToSingle(double value) {
    if (!(std::abs(value) <= std::numeric_limits<float>::max()))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<float>(value);
}

double AsDecimal(float value) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    double decimal = value;
    std::from_chars(text.data(), end, decimal);
    return decimal;
}

std::int16_t ToInteger(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min()
          && rounded <= std::numeric_limits<std::int16_t>::max()))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int16_t>(rounded);
}

} // namespace strativo
