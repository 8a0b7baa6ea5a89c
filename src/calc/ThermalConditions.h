#pragma once

#include "calc/SteadyState.h"

#include <string_view>

namespace strativo {

/// What a file does not say about a construction, and its user chooses.
struct ThermalConditions {
    FirstLayer firstLayer = FirstLayer::outside;
    AirTemperatures air;
    std::optional<double> insideFilm;  ///< m2 K/W, in place of Rsi of each direction of flow
    std::optional<double> outsideFilm; ///< likewise of Rse

    Films FilmsFor(HeatFlow flow) const {
        const Films films = FilmsOf(flow);
        return {insideFilm.value_or(films.inside), outsideFilm.value_or(films.outside)};
    }
};

/// The number that the text is, as far as it lies within the limits; nothing for another text.
std::optional<double> NumberWithin(std::string_view text, double lowest, double highest);

} // namespace strativo
