#include "text/Numbers.h"

#include "text/RuntimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

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

/// Reads the digits that start here into the value and returns their end.
const char* ReadDigits(const char* from, const char* end, std::uint64_t& value) {
    for (; from != end && IsDigit(*from); ++from)
        value = 10 * value + static_cast<std::uint64_t>(*from - '0');
    return from;
}

/// The powers of ten of up to 16 digits. A double holds every number of up to 15 digits exactly.
constexpr std::array<double, 16> powersOfTen = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Reads a number without an exponent whose digits and power of ten are both exact, so that a
/// single division rounds it correctly. Nearly all numbers in files are of this kind, and
/// from_chars takes several times as long for them.
std::optional<double> ShortDecimal(std::string_view& text) {
    const char* const start = text.data();
    const char* const end = start + text.size();
    std::uint64_t value = 0;
    const char* last = ReadDigits(start, end, value);
    auto digits = static_cast<std::size_t>(last - start);
    std::size_t decimals = 0;
    if (last != end && *last == '.') {
        const char* const point = last;
        last = ReadDigits(point + 1, end, value);
        decimals = static_cast<std::size_t>(last - point) - 1;
        digits += decimals;
    }
    text.remove_prefix(static_cast<std::size_t>(last - start));
    if (digits >= powersOfTen.size() || text.starts_with('e') || text.starts_with('E'))
        return std::nullopt;
    const auto whole = static_cast<double>(static_cast<std::int64_t>(value));
    return decimals == 0 ? whole : whole / powersOfTen[decimals];
}

/// The exponent that the number is written with; a very large one is limited.
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

/// from_chars does not tell overflow from underflow; the position of the first significant digit
/// does.
bool Underflows(std::string_view number) {
    const auto mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    const std::string_view exponent = number.substr(std::min(mantissaEnd + 1, number.size()));
    return point - first + WrittenExponent(exponent) < 0;
}

/// The number at the start of the text; 0 if it is too small for a double.
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

/// The decimal of up to six digits that rounds to the float, if there is one. There is no second
/// one, since floats lie closer together than such decimals: it is the shortest.
std::optional<double> SixDigits(float value) {
    constexpr double least = 1e-3;
    constexpr double beyond = 1e6;
    const double magnitude = std::abs(static_cast<double>(value));
    if (!(magnitude >= least && magnitude < beyond))
        return std::nullopt;
    std::size_t decimals = 6;
    for (double bound = 1; magnitude >= bound; bound *= 10)
        --decimals;
    const double decimal =
        std::nearbyint(magnitude * powersOfTen[decimals]) / powersOfTen[decimals];
    if (static_cast<double>(static_cast<float>(decimal)) != magnitude)
        return std::nullopt;
    return std::copysign(decimal, value);
}

double WithSignOf(std::string_view number, double magnitude) {
    return number.starts_with('-') ? -magnitude : magnitude;
}

} // namespace

std::optional<double> WholeNumber(std::string_view text) {
    const std::string_view digits = SkipSign(text);
    if (!StartsWithDigits(digits))
        return std::nullopt;
    std::string_view rest = digits;
    const std::optional<double> decimal = ShortDecimal(rest);
    if (decimal && rest.empty())
        return WithSignOf(text, *decimal);
    double value = 0;
    const char* const end = digits.data() + digits.size();
    if (std::from_chars(digits.data(), end, value).ptr != end)
        return std::nullopt;
    return WithSignOf(text, AnyNumber(digits));
}

double LeadingNumber(std::string_view text) {
    const std::string_view number = SkipBlanks(text);
    const std::string_view digits = SkipSign(number);
    if (!StartsWithDigits(digits))
        return 0;
    std::string_view rest = digits;
    const std::optional<double> decimal = ShortDecimal(rest);
    return WithSignOf(number, decimal ? *decimal : AnyNumber(digits));
}

float ToSingle(double value) {
    constexpr double largest = std::numeric_limits<float>::max();
    constexpr double roundsBeyond = 0x1.ffffffp127; // half a step above the largest
    if (!(std::abs(value) < roundsBeyond))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<float>(std::clamp(value, -largest, largest));
}

double AsDecimal(float value) {
    if (const std::optional<double> decimal = SixDigits(value))
        return *decimal;
    std::array<char, 32> text{};
    // Without an exponent, large numbers would be written with more digits than they need.
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific)
            .ptr;
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
