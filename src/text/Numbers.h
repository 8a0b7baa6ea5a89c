#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace strativo {

/// The longest decimal number at the start of the text, after leading blanks: sign, digits, point
/// and digits, exponent. 0 when there is none. A number beyond a double is run-time error 6.
double LeadingNumber(std::string_view text);

/// The number that the whole text is, without blanks around it; nothing for another text. A number
/// beyond a double is run-time error 6.
std::optional<double> WholeNumber(std::string_view text);

/// The value as a 32-bit float; run-time error 6 when it does not fit.
float ToSingle(double value);

/// The double that the shortest decimal of the float stands for: 0.84f gives 0.84.
double AsDecimal(float value);

/// The value rounded to a 16-bit integer, halves to the even one; run-time error 6 when it does
/// not fit.
std::int16_t ToInteger(double value);

} // namespace strativo
