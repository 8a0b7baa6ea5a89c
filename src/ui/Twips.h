#pragma once

#include <QWidget>

#include <cmath>

namespace strativo {

inline constexpr double twipsPerInch = 1440;

/// A length in twips as whole logical pixels of the widget's screen.
inline int FromTwips(double twips, const QWidget& widget) {
    return static_cast<int>(std::lround(twips * widget.logicalDpiX() / twipsPerInch));
}

/// A length in logical pixels as twips.
inline double ToTwips(double pixels, const QWidget& widget) {
    return pixels * twipsPerInch / widget.logicalDpiX();
}

} // namespace strativo
