#include "draw/Contrast.h"

#include <algorithm>
#include <cmath>

namespace strativo {

namespace {

constexpr DrawnColour black = 0x000000;
constexpr DrawnColour white = 0xFFFFFF;
constexpr int steps = 64;

double Linear(int component) {
    const double value = component / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(DrawnColour colour) {
    return 0.2126 * Linear(colour >> 16 & 0xFF) + 0.7152 * Linear(colour >> 8 & 0xFF)
           + 0.0722 * Linear(colour & 0xFF);
}

/// The colour after that many of all steps from one colour to the other.
DrawnColour Between(DrawnColour from, DrawnColour to, int step) {
    DrawnColour mixed = 0;
    for (const int shift : {16, 8, 0}) {
        const int start = from >> shift & 0xFF;
        const int end = to >> shift & 0xFF;
        mixed |= (start + (end - start) * step / steps) << shift;
    }
    return mixed;
}

} // namespace

double ContrastRatio(DrawnColour one, DrawnColour other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

DrawnColour WithContrast(DrawnColour colour, DrawnColour other, double ratio) {
    const DrawnColour away = Luminance(colour) > Luminance(other) ? white : black;
    const DrawnColour best =
        ContrastRatio(black, other) > ContrastRatio(white, other) ? black : white;
    for (const DrawnColour goal : {away, best})
        for (int step = 0; step <= steps; ++step) {
            const DrawnColour mixed = Between(colour, goal, step);
            if (ContrastRatio(mixed, other) >= ratio)
                return mixed;
        }
    return best;
}

} // namespace strativo
