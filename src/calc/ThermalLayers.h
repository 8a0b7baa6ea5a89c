#pragma once

#include "model/Construction.h"

#include <array>
#include <optional>
#include <string>

namespace strativo {

/// The side that slot 1 of a construction faces.
enum class FirstLayer { outside, inside };

/// One homogeneous layer with its thermal properties.
struct ThermalLayer {
    int slot = 0;
    double resistance = 0;           ///< m2 K/W, above 0
    double heatCapacity = 0;         ///< J/m2 K; 0: a resistance only
    double mass = 0;                 ///< kg/m2
    std::optional<double> thickness; ///< mm; unknown for a cavity given by its resistance
    bool withoutHeatStorage = false; ///< solid, but its density or specific heat is 0
};

/// The layers of a construction from outside to inside.
struct ThermalLayers {
    std::array<ThermalLayer, maxLayers> items{};
    int count = 0;

    const ThermalLayer* begin() const { return items.data(); }
    const ThermalLayer* end() const { return items.data() + count; }
    /// Adds a layer on the inside; there must be room for it.
    void Add(const ThermalLayer& layer) { items.at(static_cast<std::size_t>(count++)) = layer; }
};

/// Why a construction has no thermal characteristics.
enum class ThermalObstacle {
    none,
    transparentConstruction,
    noLayers,
    freeSlot,
    notFinite,
    // The following concern a single layer.
    negativeThickness,
    zeroThickness,
    negativeResistance,
    zeroResistance,
    noConductivity,
    unknownCavity,
    negativeDensity,
    negativeSpecificHeat,
    outOfRange
};

/// The first obstacle, and the layer that it concerns.
struct ThermalReason {
    ThermalObstacle obstacle = ThermalObstacle::none;
    int layer = 0; ///< slot; 0 for the whole construction

    explicit operator bool() const { return obstacle != ThermalObstacle::none; }
    bool operator==(const ThermalReason&) const = default;
};

/// "layer 2: zero thickness", "no layers"; empty for none.
std::string ReasonText(ThermalReason reason);

struct LayersOrReason {
    ThermalLayers layers; ///< none where there is a reason
    ThermalReason reason;
};

/// The layers of an opaque construction, with the resistances that the indicative U-value uses.
/// Nothing is guessed: a layer without a resistance of its own is an obstacle, not a 0.
LayersOrReason ThermalLayersOf(const Construction& construction, FirstLayer firstLayer);

/// Sums over the layers, without the films.
struct LayerSums {
    std::optional<double> thickness; ///< mm; unknown if that of any layer is
    double mass = 0;                 ///< kg/m2
    double heatCapacity = 0;         ///< J/m2 K
    double resistance = 0;           ///< m2 K/W
};
LayerSums SumsOf(const ThermalLayers& layers);

} // namespace strativo
