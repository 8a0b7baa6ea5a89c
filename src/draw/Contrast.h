#pragma once

#include "draw/Drawing.h"

namespace strativo {

/// The least ratio at which texts can be read, and at which other signs can be seen, by people with
/// moderately low vision: those of the Web Content Accessibility Guidelines.
inline constexpr double readableContrast = 4.5;
inline constexpr double visibleContrast = 3.0;

/// The ratio of the luminances of two colours as these guidelines define it, from 1 to 21.
double ContrastRatio(DrawnColour one, DrawnColour other);

/// The colour, made darker or lighter no more than it needs for that ratio to the other one; away
/// from the other one where it can, and black or white where even that is not enough.
DrawnColour WithContrast(DrawnColour colour, DrawnColour other, double ratio);

} // namespace strativo
