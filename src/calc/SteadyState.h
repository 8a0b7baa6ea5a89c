#pragma once

#include "calc/ThermalLayers.h"

namespace strativo {

/// Direction of the heat flow, which decides the surface resistances.
enum class HeatFlow { horizontal, upward, downward };
inline constexpr std::array<HeatFlow, 3> heatFlows = {HeatFlow::horizontal, HeatFlow::upward,
                                                      HeatFlow::downward};
/// "horizontal", "upward", "downward".
const char* FlowName(HeatFlow flow);

/// Surface resistances, m2 K/W, 0 to largestFilm.
struct Films {
    double inside = 0;  ///< Rsi
    double outside = 0; ///< Rse
};
inline constexpr double largestFilm = 1e12; ///< m2 K/W; almost no heat passes
/// The surface resistances of ISO 6946.
Films FilmsOf(HeatFlow flow);

/// Air temperatures, degrees C, lowestTemperature to highestTemperature.
struct AirTemperatures {
    double inside = 20;
    double outside = 0;
};
inline constexpr double lowestTemperature = -273.15;
inline constexpr double highestTemperature = 1e6;

/// A place between the two air films.
struct TemperaturePoint {
    int slot = 0; ///< slot of the last layer passed from outside; 0: the outside surface
    std::optional<double> depth; ///< mm from outside; unknown after a layer of unknown thickness
    double resistance = 0;       ///< m2 K/W, counted from the outside air
    double temperature = 0;      ///< degrees C
};

struct SteadyState {
    double resistance = 0;        ///< m2 K/W, from air to air
    double transmittance = 0;     ///< U, W/m2 K
    double heatFlux = 0;          ///< W/m2, positive to the outside
    double temperatureFactor = 0; ///< fRsi, of the inside surface
    /// From outside: the outside surface, the interfaces, the inside surface.
    std::array<TemperaturePoint, maxLayers + 1> points{};
    int pointCount = 0;

    const TemperaturePoint& OutsideSurface() const { return points.front(); }
    const TemperaturePoint& InsideSurface() const {
        return points.at(static_cast<std::size_t>(pointCount) - 1);
    }
};

/// Steady heat flow through one or more layers and two films.
SteadyState SteadyStateOf(const ThermalLayers& layers, Films films, AirTemperatures air);

} // namespace strativo
