#include "calc/ThermalLayers.h"

#include "calc/TestLayers.h"

#include <gtest/gtest.h>
#include <limits>

namespace strativo {
namespace {

Layer MakeSolid(float conductivity, double thickness, double density, double specificHeat) {
    Layer layer = MakeLayer("SOLID", conductivity, thickness);
    layer.density = density;
    layer.specificHeat = specificHeat;
    return layer;
}

std::string ReasonOf(const std::vector<Layer>& layers) {
    return ReasonText(ThermalLayersOf(MakeConstruction(layers), FirstLayer::outside).reason);
}

const Layer brick = MakeSolid(0.5F, 100, 1700, 800);

TEST(ThermalLayers, OfASolidHoldResistanceMassAndHeatCapacity) {
    const auto [layers, reason] = ThermalLayersOf(MakeConstruction({brick}), FirstLayer::outside);
    ASSERT_FALSE(reason);
    ASSERT_EQ(layers.count, 1);
    const ThermalLayer& layer = *layers.begin();
    EXPECT_EQ(layer.slot, 1);
    EXPECT_DOUBLE_EQ(layer.resistance, 0.2);
    EXPECT_DOUBLE_EQ(layer.mass, 170);
    EXPECT_DOUBLE_EQ(layer.heatCapacity, 136000);
    EXPECT_EQ(layer.thickness, 100);
    EXPECT_FALSE(layer.withoutHeatStorage);
}

TEST(ThermalLayers, WithoutDensityOrSpecificHeatAreResistancesOnly) {
    const Construction wall =
        MakeConstruction({MakeSolid(0.5F, 100, 0, 800), MakeSolid(0.5F, 100, 1700, 0)});
    const auto [layers, reason] = ThermalLayersOf(wall, FirstLayer::outside);
    ASSERT_FALSE(reason);
    for (const ThermalLayer& layer : layers) {
        EXPECT_DOUBLE_EQ(layer.resistance, 0.2);
        EXPECT_EQ(layer.heatCapacity, 0);
        EXPECT_TRUE(layer.withoutHeatStorage);
    }
    EXPECT_EQ(layers.begin()->mass, 0);
    EXPECT_DOUBLE_EQ(SumsOf(layers).mass, 170);
}

TEST(ThermalLayers, OfCavitiesHaveTheResistancesOfTheUValue) {
    for (const float code : {-1.0F, -5.0F, -11.0F, -2.0F, -6.0F}) {
        const auto [layers, reason] =
            ThermalLayersOf(MakeConstruction({MakeLayer("CAVITY", code, 50)}), FirstLayer::outside);
        ASSERT_FALSE(reason) << code;
        EXPECT_EQ(layers.begin()->resistance, code == -2 || code == -6 ? 0.18F : 0.11F) << code;
        EXPECT_EQ(layers.begin()->thickness, 50);
        EXPECT_FALSE(layers.begin()->withoutHeatStorage);
    }
}

TEST(ThermalLayers, OfACavityOfType3AreItsThicknessFieldAndHideTheWidth) {
    const auto [layers, reason] = ThermalLayersOf(
        MakeConstruction({brick, MakeLayer("CAVITY", -3, 0.21)}), FirstLayer::outside);
    ASSERT_FALSE(reason);
    EXPECT_EQ(layers.items[1].resistance, 0.21);
    EXPECT_FALSE(layers.items[1].thickness);
    EXPECT_FALSE(SumsOf(layers).thickness);
    EXPECT_DOUBLE_EQ(SumsOf(layers).resistance, 0.41);
}

TEST(ThermalLayers, StandFromOutsideToInsideWhicheverSideSlot1Faces) {
    const Construction wall = MakeConstruction({brick, MakeLayer("CAVITY", -1, 50)});
    EXPECT_EQ(ThermalLayersOf(wall, FirstLayer::outside).layers.begin()->slot, 1);
    EXPECT_EQ(ThermalLayersOf(wall, FirstLayer::inside).layers.begin()->slot, 2);
}

TEST(ThermalLayers, AreNotAvailableOfATransparentConstruction) {
    Construction glazing = MakeConstruction({brick});
    glazing.type = transparentType;
    const auto [layers, reason] = ThermalLayersOf(glazing, FirstLayer::outside);
    EXPECT_EQ(ReasonText(reason), "transparent construction");
    EXPECT_EQ(layers.count, 0);
}

TEST(ThermalLayers, AreNotAvailableWithoutLayersOrWithAFreeSlotBetween) {
    EXPECT_EQ(ReasonOf({}), "no layers");
    EXPECT_EQ(ReasonOf({brick, Layer(), brick}), "a free slot between layers");
    EXPECT_EQ(ReasonOf({brick, brick, Layer()}), "");
}

TEST(ThermalLayers, SayWhatStandsAgainstThemInSlotOrder) {
    EXPECT_EQ(ReasonOf({MakeSolid(0.5F, -1, 1, 1)}), "layer 1: negative thickness");
    EXPECT_EQ(ReasonOf({brick, MakeSolid(0.5F, 0, 1, 1)}), "layer 2: zero thickness");
    EXPECT_EQ(ReasonOf({MakeLayer("CAVITY", -1, 0)}), "layer 1: zero thickness");
    EXPECT_EQ(ReasonOf({MakeLayer("CAVITY", -3, -1)}), "layer 1: negative resistance");
    EXPECT_EQ(ReasonOf({MakeLayer("CAVITY", -3, 0)}), "layer 1: zero resistance");
    EXPECT_EQ(ReasonOf({brick, brick, MakeSolid(0, 10, 1, 1)}), "layer 3: no conductivity");
    for (const float code : {-4.0F, -999.0F, -0.5F, -7.0F})
        EXPECT_EQ(ReasonOf({MakeLayer("CAVITY", code, 10)}), "layer 1: unknown cavity type")
            << code;
    EXPECT_EQ(ReasonOf({MakeSolid(0.5F, 10, -1, 1)}), "layer 1: negative density");
    EXPECT_EQ(ReasonOf({MakeSolid(0.5F, 10, 1, -1)}), "layer 1: negative specific heat");
    EXPECT_EQ(ReasonOf({MakeSolid(0, 10, 1, 1), MakeSolid(0.5F, -1, 1, 1)}),
              "layer 1: no conductivity");
    EXPECT_EQ(ReasonOf({MakeSolid(0, -1, -1, -1)}), "layer 1: negative thickness");
}

TEST(ThermalLayers, OutOfRangeAreNotAvailable) {
    EXPECT_EQ(ReasonOf({MakeSolid(1, 1.01e9, 0, 0)}), "layer 1: out of range");
    EXPECT_EQ(ReasonOf({MakeSolid(1, 0.99e9, 0, 0)}), "");
    EXPECT_EQ(ReasonOf({MakeLayer("CAVITY", -3, 1.01e6)}), "layer 1: out of range");
    EXPECT_EQ(ReasonOf({MakeSolid(1, 1000, 1.01e12, 0.001)}), "layer 1: out of range");
    EXPECT_EQ(ReasonOf({MakeSolid(1, 1000, 1e6, 1.01e6)}), "layer 1: out of range");
    EXPECT_EQ(ReasonOf({MakeSolid(1, 1e300, 1e300, 1e300)}), "layer 1: out of range");
    // So thin that the reciprocal of its resistance is no number.
    EXPECT_EQ(ReasonOf({MakeSolid(1, 1e-310, 1, 1)}), "layer 1: out of range");
    EXPECT_EQ(ReasonOf({MakeLayer("CAVITY", -3, 5e-324)}), "layer 1: out of range");
}

TEST(ThermalLayers, OfValuesThatAreNoNumbersAreNotAvailable) {
    const double infinite = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {infinite, -infinite, none}) {
        EXPECT_EQ(ReasonOf({MakeSolid(0.5F, value, 1, 1)}), "a value is not finite");
        EXPECT_EQ(ReasonOf({MakeSolid(static_cast<float>(value), 1, 1, 1)}),
                  "a value is not finite");
        EXPECT_EQ(ReasonOf({MakeSolid(0.5F, 1, value, 1)}), "a value is not finite");
        EXPECT_EQ(ReasonOf({brick, MakeSolid(0.5F, 1, 1, value)}), "a value is not finite");
    }
}

} // namespace
} // namespace strativo
