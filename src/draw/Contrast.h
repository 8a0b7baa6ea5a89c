#pragma once

#include "draw/Drawing.h"

namespace strativo {

/// The lowest contrast ratios at which people with moderately low vision can read text, and see
/// other signs, according to the Web Content Accessibility Guidelines.
inline constexpr double readableContrast = 4.5;
inline constexpr double visibleContrast = 3.0;

/// The contrast ratio of two colours as these guidelines define it, from 1 to 21.
double ContrastRatio(DrawnColour one, DrawnColour other);

/// The colour, made just dark or light enough for that ratio to the other colour: away from it if
/// possible, and black or white if even that is not enough.
DrawnColour WithContrast(DrawnColour colour, DrawnColour other, double ratio);

} // namespace strativo
