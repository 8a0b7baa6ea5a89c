#include "calc/UValue.h"

#include "calc/TestLayers.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

constexpr double surfaces = 0.06 + 0.12;

TEST(IndicativeUValue, OfABrickCavityBlockWall) {
    const Construction wall =
        MakeConstruction({MakeLayer("Brick", 0.84F, 105), MakeLayer("CAVITY Type 1 NORMAL", -1, 50),
                          MakeLayer("Block", 0.19F, 100), MakeLayer("Plaster", 0.5F, 13)});
    const auto value = IndicativeUValue(wall.layers, 4);
    ASSERT_TRUE(value);
    EXPECT_NEAR(*value, 1.03379, 5e-6);
    EXPECT_EQ(UValueText(wall), "1.03");
}

TEST(IndicativeUValue, IsNotAvailableForAnEmptyConstruction) {
    EXPECT_FALSE(IndicativeUValue(LayerSlots(), 0));
    EXPECT_EQ(UValueText(Construction()), "n/a");
}

TEST(IndicativeUValue, CountsALayerOfZeroConductivityAsNothing) {
    EXPECT_EQ(UValueText(MakeConstruction({MakeLayer("Foil", 0, 1)})), "5.56");
}

TEST(IndicativeUValue, IsNotAvailableWithAnyLayerOfZeroThickness) {
    for (const float conductivity : {0.5F, 0.0F, -1.0F, -3.0F})
        EXPECT_EQ(UValueText(MakeConstruction({MakeLayer("Brick", 0.84F, 105),
                                               MakeLayer("Thin", conductivity, 0),
                                               MakeLayer("Plaster", 0.5F, 13)})),
                  "n/a")
            << conductivity;
}

TEST(IndicativeUValue, CountsNegativeThicknessAsNegativeResistance) {
    const auto value = IndicativeUValue(MakeConstruction({MakeLayer("Odd", 1, -100)}).layers, 1);
    ASSERT_TRUE(value);
    EXPECT_DOUBLE_EQ(*value, 1 / (-0.1 + surfaces));
}

TEST(IndicativeUValue, AddsAnUnknownNegativeCodeAsItIs) {
    const Construction odd = MakeConstruction({MakeLayer("Odd", -999, 100)});
    const auto value = IndicativeUValue(odd.layers, 1);
    ASSERT_TRUE(value);
    EXPECT_DOUBLE_EQ(*value, 1 / (-999 + surfaces));
    EXPECT_EQ(UValueText(odd), "-0.00");
}

TEST(IndicativeUValue, IsNotAvailableWhereResistancesAddUpToNothing) {
    EXPECT_EQ(UValueText(MakeConstruction(
                  {MakeLayer("CAVITY", -3, -0.06), MakeLayer("CAVITY", -3, -0.12)})),
              "n/a");
}

TEST(IndicativeUValue, TakesSlotsByNumberWhereSlotsBetweenAreEmpty) {
    Construction gap = MakeConstruction({MakeLayer("Brick", 0.84F, 105)});
    gap.layers.Edit(3) = MakeLayer("Plaster", 0.5F, 13);
    // Two lines, so slots 1 and 2 count, and slot 2 is empty.
    EXPECT_EQ(UValueText(gap), "n/a");
    gap.layers.Edit(2).thickness = 100;
    gap.layers.Edit(2).conductivity = 1;
    const auto value = IndicativeUValue(gap.layers, 2);
    ASSERT_TRUE(value);
    EXPECT_NEAR(*value, 1 / (0.125 + 0.1 + surfaces), 1e-6);
}

struct CavityRow {
    const char* name;
    float code;
    double uValueResistance;
    float listResistance;
};

class CavityResistances : public testing::TestWithParam<CavityRow> {
protected:
    static constexpr double thickness = 0.25;
    const Layer layer = MakeLayer("CAVITY", GetParam().code, thickness);
};

TEST_P(CavityResistances, CountInTheUValue) {
    const auto value = IndicativeUValue(MakeConstruction({layer}).layers, 1);
    ASSERT_TRUE(value);
    EXPECT_DOUBLE_EQ(*value, 1 / (GetParam().uValueResistance + 0.06 + 0.12));
}

TEST_P(CavityResistances, ShowInTheList) {
    EXPECT_EQ(LayerListResistance(layer), GetParam().listResistance);
}

constexpr double ordinary = 0.10999999940395355;
constexpr double lowEmissivity = 0.18000000715255737;

constexpr CavityRow rows[] = {
    {"Normal", -1, ordinary, 0.11F},
    {"LowEmissivity", -2, lowEmissivity, 0.18F},
    {"ThicknessIsResistance", -3, 0.25, 0.25F},
    {"WithoutNamedTypeOnlyInTheUValue", -4, ordinary, 0},
    {"NormalVentilated", -5, ordinary, 0.11F},
    {"LowEmissivityVentilated", -6, lowEmissivity, 0.18F},
    {"Unknown", -7, -7, -7},
    {"Iso15099", -11, ordinary, 0.11F},
    {"UnknownBelowAll", -999, -999, -999},
    {"NotQuiteACode", -1.5F, -1.5, -1.5F},
};

INSTANTIATE_TEST_SUITE_P(Codes, CavityResistances, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(LayerListResistance, IsThicknessOverConductivityInSinglePrecision) {
    EXPECT_EQ(LayerListResistance(MakeLayer("Brick", 0.84F, 105)),
              static_cast<float>(105 / 1000.0 / static_cast<double>(0.84F)));
}

TEST(LayerListResistance, IsZeroWithoutThicknessOrConductivity) {
    EXPECT_EQ(LayerListResistance(MakeLayer("Brick", 0.84F, 0)), 0);
    EXPECT_EQ(LayerListResistance(MakeLayer("Brick", 0.84F, -10)), 0);
    EXPECT_EQ(LayerListResistance(MakeLayer("Brick", 0, 105)), 0);
}

TEST(LayerListResistance, StaysWithinA32BitFloat) {
    EXPECT_EQ(LayerListResistance(MakeLayer("Huge", 1e-30F, 1e300)),
              std::numeric_limits<float>::max());
    EXPECT_EQ(LayerListResistance(MakeLayer("CAVITY", -3, -1e300)),
              -std::numeric_limits<float>::max());
}

TEST(IndicativeUValue, OfAnEndlessResistanceIsZero) {
    EXPECT_EQ(UValueText(MakeConstruction({MakeLayer("Huge", 1e-30F, 1e300)})), "0.00");
}

} // namespace
} // namespace strativo
