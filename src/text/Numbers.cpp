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
    const auto start = text.find_first_not_of(" \t");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

std::string_view SkipSign(std::string_view text) {
    return !text.empty() && (text[0] == '+' || text[0] == '-') ? text.substr(1) : text;
}

bool StartsWithDigits(std::string_view text) {
    if (!text.empty() && text[0] == '.')
        text.remove_prefix(1);
    return !text.empty() && IsDigit(text[0]);
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

} // namespace

bool IsNumber(std::string_view text) {
    const std::string_view digits = SkipSign(text);
    double value = 0;
    return StartsWithDigits(digits)
           && std::from_chars(digits.data(), digits.data() + digits.size(), value).ptr
                  == digits.data() + digits.size();
}

double LeadingNumber(std::string_view text) {
    const std::string_view number = SkipBlanks(text);
    const std::string_view digits = SkipSign(number);
    if (!StartsWithDigits(digits))
        return 0;
    double value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const auto length = static_cast<std::size_t>(result.ptr - digits.data());
        if (!Underflows(digits.substr(0, length)))
            throw RuntimeError(ErrorNumber::overflow);
        value = 0;
    }
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
