#pragma once

#include <string>
#include <string_view>

namespace strativo {

/// A number format pattern such as "#0.00" or "0.0##": a "0" is a digit that is always shown, a
/// "#" one that is shown when the number needs it. Whole digits are never cut. The pattern
/// "#E+00" shows one significant digit and an exponent with sign and at least two digits.
struct NumberPattern {
    int minWhole = 0;    ///< least number of digits before the point
    int minDecimals = 0; ///< least number of digits after the point
    int maxDecimals = 0; ///< greatest number of digits after the point
    bool exponent = false;

    constexpr NumberPattern(const char* pattern) {
        bool decimals = false;
        for (const char* c = pattern; *c != 0 && !exponent; ++c) {
            exponent = *c == 'E';
            decimals = decimals || *c == '.';
            maxDecimals += decimals && *c != '.' ? 1 : 0;
            (decimals ? minDecimals : minWhole) += *c == '0' ? 1 : 0;
        }
    }
};

/// The value formatted with the pattern. It is rounded half away from zero, based on the shortest
/// decimal that reads back to it. A negative value keeps its minus sign. The value must be finite.
std::string FormatNumber(double value, NumberPattern pattern);

/// Room for any number in any pattern with up to 64 places.
inline constexpr std::size_t longestNumber = 400;

/// Writes the same text to memory that has room for the longest number, and returns its end.
char* PutNumber(char* place, double value, NumberPattern pattern);

/// The number as the shortest decimal that reads back to it, without exponent for whole numbers
/// of up to 15 digits: "3", "-4", "0.5".
std::string FormatGeneral(double value);

/// The text cut to maxLength and padded with blanks on the right to width.
std::string LeftField(std::string_view text, std::size_t maxLength, std::size_t width);

/// The text padded with blanks on the left to width; a longer text is kept whole.
std::string RightField(std::string_view text, std::size_t width);

/// The number with a blank in the place of the sign if it is not negative: 1 gives " 1", -4 gives
/// "-4".
std::string SignPositionNumber(int number);

} // namespace strativo
