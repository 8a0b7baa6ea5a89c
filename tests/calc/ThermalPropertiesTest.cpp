#include "calc/RandomLayers.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

constexpr int constructions = 10000;
constexpr double close = 1e-9;

void ExpectClose(double value, double expected, const char* what) {
    EXPECT_NEAR(value, expected, std::max(close * std::abs(expected), 1e-11)) << what;
}

void ExpectSame(const SideCharacteristics& side, const SideCharacteristics& expected) {
    ExpectClose(side.admittance, expected.admittance, "admittance");
    ExpectClose(side.lead, expected.lead, "lead");
    ExpectClose(side.heatCapacity, expected.heatCapacity, "heat capacity");
}

/// Hours between two lags on a clock of 24 h.
double HoursApart(const DynamicCharacteristics& a, const DynamicCharacteristics& b) {
    return std::abs(std::remainder(a.periodicLag.value() - b.periodicLag.value(), 24));
}

TEST(RandomConstructions, TurnedRoundExchangeTheirSides) {
    RandomWalls random;
    for (int i = 0; i < constructions && !testing::Test::HasFailure(); ++i) {
        const ThermalLayers layers = random.Layers();
        const Films films = random.BothFilms();
        const auto wall = DynamicCharacteristicsOf(layers, films);
        const auto turned =
            DynamicCharacteristicsOf(Reversed(layers), {films.outside, films.inside});
        ExpectSame(wall.inside, turned.outside);
        ExpectSame(wall.outside, turned.inside);
        EXPECT_NEAR(wall.periodicTransmittance / turned.periodicTransmittance, 1, close);
        EXPECT_LT(HoursApart(wall, turned), 1e-8);
        EXPECT_NEAR(wall.decrementFactor / turned.decrementFactor, 1, close);
    }
}

TEST(RandomConstructions, HaveAMatrixOfDeterminant1) {
    RandomWalls random;
    for (int i = 0; i < constructions && !testing::Test::HasFailure(); ++i) {
        const auto wall = DynamicCharacteristicsOf(random.Layers(), random.BothFilms());
        ASSERT_TRUE(wall.matrix);
        const Complex left = wall.matrix->z11 * wall.matrix->z22;
        const Complex right = wall.matrix->z12 * wall.matrix->z21;
        EXPECT_LT(std::abs(left - right - 1.0), 1e-10 * std::max(1.0, std::abs(left)));
    }
}

TEST(RandomConstructions, StayWithinTheBoundsOfTheirFigures) {
    constexpr double rounding = 1 + 1e-12;
    RandomWalls random;
    for (int i = 0; i < constructions && !testing::Test::HasFailure(); ++i) {
        const ThermalLayers layers = random.Layers();
        const Films films = random.BothFilms();
        const auto wall = DynamicCharacteristicsOf(layers, films);
        EXPECT_LE(wall.decrementFactor, rounding);
        EXPECT_LE(wall.surfaceFactor, rounding);
        EXPECT_LE(wall.inside.admittance * films.inside, rounding);
        EXPECT_LE(wall.outside.admittance * films.outside, rounding);
        EXPECT_LE(wall.inside.heatCapacity + wall.outside.heatCapacity,
                  2.5 * SumsOf(layers).heatCapacity + 1e-9);
        EXPECT_GE(wall.periodicLag.value(), 0);
        EXPECT_LT(wall.periodicLag.value(), 24);
    }
}

TEST(RandomConstructions, InASwingWithoutEndAreSteady) {
    constexpr double endless = 1e30;
    RandomWalls random;
    for (int i = 0; i < constructions && !testing::Test::HasFailure(); ++i) {
        const ThermalLayers layers = random.Layers();
        const Films films = random.BothFilms();
        const double steady = SteadyStateOf(layers, films, {}).transmittance;
        const auto wall = DynamicCharacteristicsOf(layers, films, endless);
        EXPECT_NEAR(wall.inside.admittance / steady, 1, close);
        EXPECT_NEAR(wall.outside.admittance / steady, 1, close);
        EXPECT_NEAR(wall.periodicTransmittance / steady, 1, close);
        EXPECT_NEAR(wall.decrementFactor, 1, close);
    }
}

TEST(RandomConstructions, WithoutHeatStorageAreSteadyExactly) {
    RandomWalls random;
    for (int i = 0; i < constructions && !testing::Test::HasFailure(); ++i) {
        ThermalLayers layers = random.Layers();
        for (ThermalLayer& layer : layers.items)
            layer.heatCapacity = 0;
        const Films films = random.BothFilms();
        const double steady = SteadyStateOf(layers, films, {}).transmittance;
        const auto wall = DynamicCharacteristicsOf(layers, films);
        EXPECT_EQ(wall.inside.admittance, steady);
        EXPECT_EQ(wall.outside.admittance, steady);
        EXPECT_EQ(wall.periodicTransmittance, steady);
        EXPECT_EQ(wall.decrementFactor, 1);
        EXPECT_EQ(wall.periodicLag, 0);
        EXPECT_EQ(wall.inside.lead, 0);
        EXPECT_EQ(wall.inside.heatCapacity, 0);
        EXPECT_NEAR(wall.surfaceFactor, 1 - films.inside * steady, close);
    }
}

/// The same wall with one of its layers in two pieces.
ThermalLayers CutOnce(const ThermalLayers& layers, int cut, double share) {
    ThermalLayers pieces;
    for (const ThermalLayer& layer : layers) {
        const auto add = [&](double part) {
            pieces.Add({layer.slot, layer.resistance * part, layer.heatCapacity * part,
                        layer.mass * part, layer.thickness.value() * part, false});
        };
        if (layer.slot != cut) {
            add(1);
            continue;
        }
        add(share);
        add(1 - share);
    }
    return pieces;
}

TEST(RandomConstructions, CutInPiecesStayAsTheyAre) {
    RandomWalls random;
    for (int i = 0; i < constructions && !testing::Test::HasFailure(); ++i) {
        ThermalLayers layers = random.Layers();
        layers.count = std::min(layers.count, maxLayers - 1);
        const Films films = random.BothFilms();
        const int cut = random.Whole(1, layers.count);
        const auto wall = DynamicCharacteristicsOf(layers, films);
        const auto pieces =
            DynamicCharacteristicsOf(CutOnce(layers, cut, random.Between(0.001, 0.999)), films);
        ExpectSame(pieces.inside, wall.inside);
        ExpectSame(pieces.outside, wall.outside);
        EXPECT_NEAR(pieces.periodicTransmittance / wall.periodicTransmittance, 1, close);
        EXPECT_LT(HoursApart(pieces, wall), 1e-8);
        ExpectClose(pieces.surfaceFactor, wall.surfaceFactor, "surface factor");
        ExpectClose(pieces.surfaceLag, wall.surfaceLag, "surface lag");
    }
}

TEST(RandomConstructions, HaveASurfaceFactorOfOneLessRsiTimesTheAdmittance) {
    RandomWalls random;
    for (int i = 0; i < constructions && !testing::Test::HasFailure(); ++i) {
        const Films films = random.BothFilms();
        const auto wall = DynamicCharacteristicsOf(random.Layers(), films);
        const Complex admittance =
            std::polar(wall.inside.admittance, wall.inside.lead / 24 * 2 * std::acos(-1.0));
        EXPECT_NEAR(wall.surfaceFactor, std::abs(1.0 - films.inside * admittance), 1e-12);
    }
}

TEST(RandomConstructions, HaveTemperaturesThatFallFromInsideToOutside) {
    RandomWalls random;
    for (int i = 0; i < constructions && !testing::Test::HasFailure(); ++i) {
        const ThermalLayers layers = random.Layers();
        const Films films = random.BothFilms();
        const SteadyState steady = SteadyStateOf(layers, films, {20, -5});
        ASSERT_EQ(steady.pointCount, layers.count + 1);
        for (int point = 1; point < steady.pointCount; ++point)
            EXPECT_GT(steady.points[static_cast<std::size_t>(point)].temperature,
                      steady.points[static_cast<std::size_t>(point) - 1].temperature);
        EXPECT_NEAR(steady.OutsideSurface().temperature, -5 + steady.heatFlux * films.outside,
                    1e-9);
        EXPECT_NEAR(steady.InsideSurface().temperature, 20 - steady.heatFlux * films.inside, 1e-9);
        EXPECT_NEAR((steady.InsideSurface().temperature + 5) / 25, steady.temperatureFactor, 1e-12);
    }
}

} // namespace
} // namespace strativo
