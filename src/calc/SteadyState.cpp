#include "calc/SteadyState.h"

namespace strativo {

const char* FlowName(HeatFlow flow) {
    constexpr std::array<const char*, 3> names = {"horizontal", "upward", "downward"};
    return names.at(static_cast<std::size_t>(flow));
}

Films FilmsOf(HeatFlow flow) {
    constexpr double outside = 0.04;
    constexpr std::array<double, 3> inside = {0.13, 0.10, 0.17};
    return {inside.at(static_cast<std::size_t>(flow)), outside};
}

SteadyState SteadyStateOf(const ThermalLayers& layers, Films films, AirTemperatures air) {
    SteadyState steady;
    steady.resistance = films.inside + SumsOf(layers).resistance + films.outside;
    steady.transmittance = 1 / steady.resistance;
    steady.heatFlux = steady.transmittance * (air.inside - air.outside);
    steady.temperatureFactor = (steady.resistance - films.inside) / steady.resistance;

    TemperaturePoint point{0, 0.0, films.outside, 0};
    const auto addPoint = [&] {
        point.temperature =
            air.outside + (air.inside - air.outside) * (point.resistance / steady.resistance);
        steady.points.at(static_cast<std::size_t>(steady.pointCount++)) = point;
    };
    addPoint();
    for (const ThermalLayer& layer : layers) {
        point.slot = layer.slot;
        point.resistance += layer.resistance;
        if (point.depth && layer.thickness)
            *point.depth += *layer.thickness;
        else
            point.depth.reset();
        addPoint();
    }
    return steady;
}

} // namespace strativo
