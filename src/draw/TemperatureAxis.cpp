#include "draw/TemperatureAxis.h"

#include "text/Format.h"

#include <algorithm>
#include <cmath>

namespace strativo {

TemperatureAxis TemperatureAxisFor(AirTemperatures air) {
    constexpr double usualSteps = 5;
    const auto [low, high] = std::minmax(air.inside, air.outside);
    const double wanted = std::max(high - low, 1.0) / usualSteps;
    const double power = std::pow(10, std::floor(std::log10(wanted)));
    TemperatureAxis axis;
    axis.step = 10 * power;
    for (const double factor : {5.0, 2.0, 1.0})
        if (factor * power >= wanted * (1 - 1e-9))
            axis.step = factor * power;
    axis.lowest = std::floor(low / axis.step) * axis.step;
    axis.steps = std::max(1, static_cast<int>(std::ceil((high - axis.lowest) / axis.step - 1e-9)));
    return axis;
}

double TemperatureAxis::Mark(int number) const {
    constexpr double hundredths = 100;
    return std::round((lowest + step * number) * hundredths) / hundredths;
}

std::string TemperatureText(double temperature) {
    const double tenths = std::round(temperature * 10) / 10;
    return FormatNumber(tenths == 0 ? 0 : tenths, "0.0");
}

} // namespace strativo
