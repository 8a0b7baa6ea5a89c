#include "calc/ThermalLayers.h"

#include "calc/CavityTypes.h"
#include "calc/UValue.h"

#include <algorithm>
#include <cmath>

namespace strativo {

namespace {

/// Beyond these limits nothing describes a real wall; within them, sums of 15 layers stay far from
/// overflow.
constexpr double smallestResistance = 1e-300; // m2 K/W
constexpr double largestResistance = 1e6;     // m2 K/W
constexpr double largestHeatCapacity = 1e12;  // J/m2 K
constexpr double largestMass = 1e12;          // kg/m2

constexpr double millimetresPerMetre = 1000;

constexpr std::array<const char*, 14> reasonTexts = {
    "",
    "transparent construction",
    "no layers",
    "a free slot between layers",
    "a value is not finite",
    "negative thickness",
    "zero thickness",
    "negative resistance",
    "zero resistance",
    "no conductivity",
    "unknown cavity type",
    "negative density",
    "negative specific heat",
    "out of range",
};

bool IsFinite(const Layer& layer) {
    return std::isfinite(layer.thickness) && std::isfinite(layer.conductivity)
           && std::isfinite(layer.density) && std::isfinite(layer.specificHeat);
}

ThermalObstacle ObstacleOfWhole(const Construction& construction) {
    const LayerSlots& layers = construction.layers;
    const int count = LayerCount(construction);
    if (construction.type != opaqueType)
        return ThermalObstacle::transparentConstruction;
    if (count == 0)
        return ThermalObstacle::noLayers;
    if (SlotOfLayer(construction, count) != count)
        return ThermalObstacle::freeSlot;
    for (int slot = 1; slot <= count; ++slot)
        if (!IsFinite(layers[slot]))
            return ThermalObstacle::notFinite;
    return ThermalObstacle::none;
}

/// Cavities whose thickness field is a width.
bool HasFixedResistance(const Layer& layer) {
    const float code = layer.conductivity;
    return code == -1 || code == -2 || code == -5 || code == -6 || code == -11;
}

ThermalObstacle ObstacleOfThickness(const Layer& layer) {
    const bool isResistance = layer.conductivity == resistanceCavity;
    if (layer.thickness < 0)
        return isResistance ? ThermalObstacle::negativeResistance
                            : ThermalObstacle::negativeThickness;
    if (layer.thickness == 0)
        return isResistance ? ThermalObstacle::zeroResistance : ThermalObstacle::zeroThickness;
    return ThermalObstacle::none;
}

ThermalObstacle ObstacleOfMaterial(const Layer& layer) {
    if (layer.conductivity == 0)
        return ThermalObstacle::noConductivity;
    if (layer.conductivity < 0) {
        const bool known = layer.conductivity == resistanceCavity || HasFixedResistance(layer);
        return known ? ThermalObstacle::none : ThermalObstacle::unknownCavity;
    }
    if (layer.density < 0)
        return ThermalObstacle::negativeDensity;
    return layer.specificHeat < 0 ? ThermalObstacle::negativeSpecificHeat : ThermalObstacle::none;
}

ThermalObstacle ObstacleOfRange(const ThermalLayer& layer) {
    const bool inRange = layer.resistance >= smallestResistance
                         && layer.resistance <= largestResistance
                         && layer.heatCapacity <= largestHeatCapacity && layer.mass <= largestMass;
    return inRange ? ThermalObstacle::none : ThermalObstacle::outOfRange;
}

ThermalLayer ThermalLayerOf(const Layer& layer, int slot) {
    ThermalLayer thermal;
    thermal.slot = slot;
    thermal.resistance = LayerResistance(layer);
    if (layer.conductivity != resistanceCavity)
        thermal.thickness = layer.thickness;
    if (layer.conductivity > 0) {
        thermal.mass = layer.thickness / millimetresPerMetre * layer.density;
        thermal.withoutHeatStorage = layer.density == 0 || layer.specificHeat == 0;
        thermal.heatCapacity = thermal.withoutHeatStorage ? 0 : thermal.mass * layer.specificHeat;
    }
    return thermal;
}

/// Of several obstacles, returns the one that comes first in their list.
ThermalObstacle ObstacleOfLayer(const Layer& layer, const ThermalLayer& thermal) {
    for (const ThermalObstacle obstacle :
         {ObstacleOfThickness(layer), ObstacleOfMaterial(layer), ObstacleOfRange(thermal)})
        if (obstacle != ThermalObstacle::none)
            return obstacle;
    return ThermalObstacle::none;
}

} // namespace

std::string ReasonText(ThermalReason reason) {
    const std::string text = reasonTexts.at(static_cast<std::size_t>(reason.obstacle));
    return reason.layer == 0 ? text : "layer " + std::to_string(reason.layer) + ": " + text;
}

LayersOrReason ThermalLayersOf(const Construction& construction, FirstLayer firstLayer) {
    LayersOrReason result;
    result.reason.obstacle = ObstacleOfWhole(construction);
    if (result.reason)
        return result;
    const int count = LayerCount(construction);
    for (int slot = 1; slot <= count; ++slot) {
        const Layer& layer = construction.layers[slot];
        const ThermalLayer thermal = ThermalLayerOf(layer, slot);
        const ThermalObstacle obstacle = ObstacleOfLayer(layer, thermal);
        if (obstacle != ThermalObstacle::none)
            return {{}, {obstacle, slot}};
        result.layers.Add(thermal);
    }
    if (firstLayer == FirstLayer::inside)
        std::reverse(result.layers.items.begin(),
                     result.layers.items.begin() + result.layers.count);
    return result;
}

LayerSums SumsOf(const ThermalLayers& layers) {
    LayerSums sums;
    sums.thickness = 0;
    for (const ThermalLayer& layer : layers) {
        if (sums.thickness && layer.thickness)
            *sums.thickness += *layer.thickness;
        else
            sums.thickness.reset();
        sums.mass += layer.mass;
        sums.heatCapacity += layer.heatCapacity;
        sums.resistance += layer.resistance;
    }
    return sums;
}

} // namespace strativo
