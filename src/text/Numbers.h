#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace strativo {

/// The longest decimal number at the start of the text, after leading blanks: sign, digits, point
/// and digits, exponent; 0 if there is none. Throws run-time error 6 if it does not fit into a
/// double.
double LeadingNumber(std::string_view text);

/// The number that the whole text consists of, apart from blanks around it; nothing for any other
/// text. Throws run-time error 6 if it does not fit into a double.
std::optional<double> WholeNumber(std::string_view text);

/// The value as a 32-bit float; throws run-time error 6 if it does not fit.
float ToSingle(double value);

/// The double nearest to the float's shortest decimal: 0.84f gives 0.84.
double AsDecimal(float value);

/// The value rounded to a 16-bit integer, halves to the even one; throws run-time error 6 if it
/// does not fit.
std::int16_t ToInteger(double value);

} // namespace strativo
