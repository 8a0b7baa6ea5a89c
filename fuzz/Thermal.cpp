#include "calc/DynamicCharacteristics.h"
#include "fuzz/FuzzBytes.h"
#include "fuzz/Invariants.h"
#include "fuzz/Targets.h"

#include <cmath>

namespace strativo::fuzz {

namespace {

/// Any number at all, or one that a wall may have: most of the others are refused at once.
double Number(FuzzBytes& bytes) {
    constexpr int steps = 40;
    if (bytes.Flag())
        return bytes.Value<double>();
    return std::pow(10, bytes.Below(steps) / 4.0 - 4);
}

/// A conductivity, or a cavity code.
float Conductivity(FuzzBytes& bytes) {
    constexpr int lowestCode = 12;
    if (bytes.Below(4) == 0)
        return static_cast<float>(-bytes.Below(lowestCode));
    return bytes.Flag() ? bytes.Value<float>() : static_cast<float>(Number(bytes));
}

Construction AnyConstruction(FuzzBytes& bytes) {
    Construction construction;
    construction.type = bytes.Below(8) == 0 ? transparentType : opaqueType;
    const int count = bytes.Below(maxLayers + 1);
    for (int slot = 1; slot <= count; ++slot) {
        Layer& layer = construction.layers.Edit(slot);
        layer.name = bytes.Below(16) == 0 ? "" : "LAYER";
        layer.conductivity = Conductivity(bytes);
        layer.thickness = Number(bytes);
        layer.density = Number(bytes);
        layer.specificHeat = Number(bytes);
    }
    return construction;
}

double Within(double value, double lowest, double highest) {
    return value >= lowest && value <= highest ? value : lowest;
}

void RequireFinite(std::initializer_list<double> values, const char* promise) {
    for (const double value : values)
        Require(std::isfinite(value), promise);
}

void CheckSteadyState(const SteadyState& steady, int layers) {
    RequireFinite(
        {steady.resistance, steady.transmittance, steady.heatFlux, steady.temperatureFactor},
        "the steady state is made of numbers");
    Require(steady.pointCount == layers + 1, "a temperature at each face of a layer");
    for (int i = 0; i < steady.pointCount; ++i) {
        const TemperaturePoint& point = steady.points.at(static_cast<std::size_t>(i));
        RequireFinite({point.temperature, point.resistance, point.depth.value_or(0)},
                      "the temperatures are numbers");
    }
}

void CheckSide(const SideCharacteristics& side) {
    RequireFinite({side.admittance, side.lead, side.heatCapacity},
                  "the figures of a side are numbers");
}

void CheckDynamic(const DynamicCharacteristics& dynamic) {
    CheckSide(dynamic.inside);
    CheckSide(dynamic.outside);
    RequireFinite({dynamic.periodicTransmittance, dynamic.decrementFactor, dynamic.surfaceFactor,
                   dynamic.surfaceLag},
                  "the dynamic figures are numbers");
    if (dynamic.periodicLag)
        Require(*dynamic.periodicLag >= 0 && *dynamic.periodicLag < 24, "the lag is below a day");
    Require(dynamic.decrementFactor < 1 + 1e-9, "a wall lets no more pass than steadily");
    if (!dynamic.matrix)
        return;
    for (const Complex& element :
         {dynamic.matrix->z11, dynamic.matrix->z12, dynamic.matrix->z21, dynamic.matrix->z22})
        RequireFinite({element.real(), element.imag()}, "the matrix is made of numbers");
}

} // namespace

void Thermal(std::string_view input) {
    FuzzBytes bytes(input);
    const FirstLayer first = bytes.Flag() ? FirstLayer::inside : FirstLayer::outside;
    const Films films{Within(Number(bytes), 0, largestFilm), Within(Number(bytes), 0, largestFilm)};
    const AirTemperatures air{Within(Number(bytes), lowestTemperature, highestTemperature),
                              Within(Number(bytes), lowestTemperature, highestTemperature)};
    const auto [layers, reason] = ThermalLayersOf(AnyConstruction(bytes), first);
    Require(reason.obstacle == ThermalObstacle::none || layers.count == 0,
            "without figures there are no layers");
    if (reason)
        return;
    const LayerSums sums = SumsOf(layers);
    RequireFinite({sums.mass, sums.heatCapacity, sums.resistance, 1 / sums.resistance,
                   sums.thickness.value_or(0)},
                  "the sums are numbers");
    CheckSteadyState(SteadyStateOf(layers, films, air), layers.count);
    CheckDynamic(DynamicCharacteristicsOf(layers, films));
}

} // namespace strativo::fuzz
