#pragma once

#include "calc/SteadyState.h"

namespace strativo {

/// The round figures of a temperature axis that holds both air temperatures, degrees C.
struct TemperatureAxis {
    double lowest = 0;
    double step = 1; ///< 1, 2 or 5 times a power of 10
    int steps = 1;

    double Highest() const { return lowest + step * steps; }
    double Mark(int number) const; ///< of the mark with that number, 0 to steps
};
TemperatureAxis TemperatureAxisFor(AirTemperatures air);

/// A temperature with one decimal; never "-0.0".
std::string TemperatureText(double temperature);

} // namespace strativo
