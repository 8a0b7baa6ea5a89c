#include "calc/RandomLayers.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

constexpr double pi = 3.14159265358979323846;

ThermalLayers OneLayer(double thickness, double conductivity, double density, double specificHeat) {
    ThermalLayers layers;
    const double mass = thickness / 1000 * density;
    layers.Add({1, thickness / 1000 / conductivity, mass * specificHeat, mass, thickness, false});
    return layers;
}

TEST(ThickLayers, AnswerAsAHalfSpaceDoes) {
    const ThermalLayers rock = OneLayer(10e6, 2, 2400, 1000); // 10 km
    const auto dynamic = DynamicCharacteristicsOf(rock, {0, 0});
    const double admittance = std::sqrt(2 * pi / secondsPerDay * 2 * 2400 * 1000);
    EXPECT_NEAR(dynamic.inside.admittance, admittance, 1e-12 * admittance);
    EXPECT_NEAR(dynamic.inside.lead, 3, 1e-12);
    EXPECT_NEAR(dynamic.outside.admittance, admittance, 1e-12 * admittance);
    EXPECT_NEAR(dynamic.inside.heatCapacity, admittance * secondsPerDay / (2 * pi), 1e-6);
}

TEST(ThickLayers, LetNothingPassAndHaveNoLag) {
    const auto dynamic = DynamicCharacteristicsOf(OneLayer(10e6, 2, 2400, 1000), {0.13, 0.04});
    EXPECT_EQ(dynamic.periodicTransmittance, 0);
    EXPECT_EQ(dynamic.decrementFactor, 0);
    EXPECT_FALSE(dynamic.periodicLag);
    EXPECT_FALSE(dynamic.matrix);
    EXPECT_LT(dynamic.surfaceFactor, 1);
}

TEST(ThickLayers, PassTheLimitOfTheirMethodWithoutAStep) {
    // One resistance and heat capacity with x on both sides of where the power of e is split off.
    const double x = 20;
    const double heatCapacity = x * x * 2 / (2 * pi / secondsPerDay);
    for (const double hair : {-1e-12, 1e-12}) {
        ThermalLayers layers;
        layers.Add({1, 1, heatCapacity * (1 + hair), 0, 1, false});
        const auto dynamic = DynamicCharacteristicsOf(layers, {0, 0});
        EXPECT_NEAR(dynamic.periodicTransmittance, std::sqrt(2) * x * 2 * std::exp(-x), 1e-17);
        EXPECT_NEAR(dynamic.inside.admittance, std::sqrt(2) * x, 1e-9);
    }
}

TEST(LightLayers, KeepTheDigitsOfTheirHeatCapacity) {
    // A bare sheet of metal: each side takes half of what it holds.
    const ThermalLayers sheet = OneLayer(0.1, 200, 2700, 900);
    const auto dynamic = DynamicCharacteristicsOf(sheet, {0, 0});
    const double half = SumsOf(sheet).heatCapacity / 2;
    EXPECT_NEAR(dynamic.inside.heatCapacity, half, 1e-12 * half);
    EXPECT_NEAR(dynamic.outside.heatCapacity, half, 1e-12 * half);
    EXPECT_EQ(dynamic.surfaceFactor, 1);
    EXPECT_EQ(dynamic.surfaceLag, 0);
}

TEST(LightLayers, MayBeAsThinAsNumbersAllow) {
    ThermalLayers layers;
    layers.Add({1, 1e-300, 1e-300, 1e-300, 1, false});
    const auto dynamic = DynamicCharacteristicsOf(layers, {0.13, 0.04});
    EXPECT_NEAR(dynamic.inside.admittance, 1 / 0.17, 1e-12);
    EXPECT_NEAR(dynamic.decrementFactor, 1, 1e-12);
    EXPECT_NEAR(dynamic.periodicLag.value(), 0, 1e-300);
}

TEST(SteadyState, KnowsTheFilmsOfEachDirectionOfFlow) {
    EXPECT_EQ(FilmsOf(HeatFlow::horizontal).inside, 0.13);
    EXPECT_EQ(FilmsOf(HeatFlow::upward).inside, 0.10);
    EXPECT_EQ(FilmsOf(HeatFlow::downward).inside, 0.17);
    for (const HeatFlow flow : heatFlows)
        EXPECT_EQ(FilmsOf(flow).outside, 0.04) << FlowName(flow);
}

TEST(SteadyState, HasATemperatureFactorAlsoWithoutADifference) {
    const SteadyState steady =
        SteadyStateOf(OneLayer(100, 0.5, 0, 0), FilmsOf(HeatFlow::horizontal), {10, 10});
    EXPECT_EQ(steady.heatFlux, 0);
    EXPECT_NEAR(steady.temperatureFactor, 0.24 / 0.37, 1e-12);
    EXPECT_EQ(steady.InsideSurface().temperature, 10);
}

TEST(SteadyState, KnowsNoDepthBehindALayerOfUnknownThickness) {
    ThermalLayers layers;
    layers.Add({1, 0.2, 0, 0, 100, false});
    layers.Add({2, 0.18, 0, 0, std::nullopt, false});
    layers.Add({3, 0.2, 0, 0, 100, false});
    const SteadyState steady = SteadyStateOf(layers, {0.13, 0.04}, {});
    EXPECT_EQ(steady.points[0].depth, 0);
    EXPECT_EQ(steady.points[0].slot, 0);
    EXPECT_EQ(steady.points[1].depth, 100);
    EXPECT_FALSE(steady.points[2].depth);
    EXPECT_FALSE(steady.points[3].depth);
    EXPECT_EQ(steady.points[3].slot, 3);
    EXPECT_NEAR(steady.points[3].resistance, 0.62, 1e-12);
}

} // namespace
} // namespace strativo
