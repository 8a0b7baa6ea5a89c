#pragma once

#include "calc/HeatTransferMatrix.h"
#include "calc/SteadyState.h"

namespace strativo {

inline constexpr double secondsPerDay = 86400;
inline constexpr double secondsPerHour = 3600;

/// The elements of a heat transfer matrix as plain numbers.
struct MatrixElements {
    Complex z11; ///< 1
    Complex z12; ///< m2 K/W
    Complex z21; ///< W/m2 K
    Complex z22; ///< 1
};

/// One side's response to a swing of its own temperature.
struct SideCharacteristics {
    double admittance = 0;   ///< W/m2 K
    double lead = 0;         ///< h, by which the heat flow precedes the temperature
    double heatCapacity = 0; ///< kappa, areal heat capacity, J/m2 K
};

/// The characteristics of ISO 13786 for a swing of one period, films included.
struct DynamicCharacteristics {
    SideCharacteristics inside;
    SideCharacteristics outside;
    double periodicTransmittance = 0; ///< W/m2 K
    /// h, 0 to below one period; none where next to nothing passes.
    std::optional<double> periodicLag;
    double decrementFactor = 0; ///< 1; periodic by steady transmittance
    double surfaceFactor = 0;   ///< 1; of the admittance procedure
    double surfaceLag = 0;      ///< h
    /// From the inside air to the outside air; not available if an element exceeds 1e300.
    std::optional<MatrixElements> matrix;
};

/// The characteristics of one or more layers and two films, for a period in seconds.
DynamicCharacteristics DynamicCharacteristicsOf(const ThermalLayers& layers, Films films,
                                                double period = secondsPerDay);

} // namespace strativo
