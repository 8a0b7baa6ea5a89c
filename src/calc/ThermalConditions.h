#pragma once

#include "calc/SteadyState.h"

#include <string_view>

namespace strativo {

/// Conditions that a file does not contain and the user chooses.
struct ThermalConditions {
    FirstLayer firstLayer = FirstLayer::outside;
    AirTemperatures air;
    std::optional<double> insideFilm;  ///< m2 K/W, instead of Rsi for every direction of flow
    std::optional<double> outsideFilm; ///< likewise for Rse

    Films FilmsFor(HeatFlow flow) const {
        const Films films = FilmsOf(flow);
        return {insideFilm.value_or(films.inside), outsideFilm.value_or(films.outside)};
    }
};

/// The number that the text consists of, if it lies within the limits; nothing for any other text.
std::optional<double> NumberWithin(std::string_view text, double lowest, double highest);

} // namespace strativo
