#include "calc/LayerList.h"
#include "calc/TestLayers.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(FormatLayerLine, OfABrickLayer) {
    EXPECT_EQ(FormatLayerLine(MakeLayer("Brick outer leaf", 0.84F, 105)),
              "Brick outer leaf                       0.1250      105");
}

TEST(FormatLayerLine, OfACavity) {
    EXPECT_EQ(FormatLayerLine(MakeLayer("CAVITY Type 1 NORMAL", -1, 50)),
              "CAVITY Type 1 NORMAL                   0.1100       50");
}

TEST(FormatLayerLine, CutsTheNameToThirtyFiveCharacters) {
    const std::string line =
        FormatLayerLine(MakeLayer("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+", 0.84F, 105));
    EXPECT_EQ(line, "ABCDEFGHIJKLMNOPQRSTUVWXYZ012345678    0.1250      105");
    EXPECT_EQ(line.size(), 54U);
}

struct LineRow {
    const char* name;
    float conductivity;
    double thickness;
    const char* numbers; ///< the line from column 40 on
};

class LayerLineNumbers : public testing::TestWithParam<LineRow> {};

TEST_P(LayerLineNumbers, StandInTheirColumns) {
    const LineRow& row = GetParam();
    EXPECT_EQ(FormatLayerLine(MakeLayer("X", row.conductivity, row.thickness)),
              "X" + std::string(38, ' ') + row.numbers);
}

// Code -3 shows its thickness as the resistance, so one value tries both columns.
constexpr LineRow rows[] = {
    {"ResistanceCavity", -3, 0.18, "0.1800    0.180"},
    {"RoundsUpToOneWithFourDecimals", -3, 0.99997, "1.0000    1.000"},
    {"OneHasThreeDecimals", -3, 1, " 1.000        1"},
    {"RoundsUpToTenWithThreeDecimals", -3, 9.9996, "10.000       10"},
    {"TenHasTwoDecimals", -3, 10, " 10.00       10"},
    {"RoundsUpToHundredWithTwoDecimals", -3, 99.996, "100.00      100"},
    {"HundredIsWhole", -3, 100, "   100      100"},
    {"RoundsUpToHundredThousand", -3, 99999.6, "100000   100000"},
    {"HundredThousandHasAnExponent", -3, 100000, " 1E+05   100000"},
    {"HundredThousandAsSingle", -3, 99999.9999, " 1E+05   100000"},
    {"LongThicknessPushes", -3, 1234567, " 1E+06   1234567"},
    {"NegativeResistance", -3, -0.5, "-0.500   -0.500"},
    {"NegativeTens", -3, -55, "-55.000   -55.000"},
    {"UnknownCodePushes", -999, 100, "-999.000      100"},
    {"CodeWithoutNamedType", -4, 50, "  n/a        50"},
    {"ZeroConductivity", 0, 50, "  n/a        50"},
    {"ZeroThickness", 0.5F, 0, "  n/a     0.000"},
    {"NegativeThickness", 0.5F, -5, "  n/a    -5.000"},
    {"ZeroResistanceCavity", -3, 0, "  n/a     0.000"},
    {"ThicknessRoundedHalfUp", 1, 12.5, "0.0125       13"},
    {"ThicknessBelowOne", 1, 0.9996, "0.0010    1.000"},
};

INSTANTIATE_TEST_SUITE_P(Lines, LayerLineNumbers, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(ThicknessText, HasWholeMillimetresFromOneAndThreeDecimalsBelow) {
    EXPECT_EQ(ThicknessText(105), "105");
    EXPECT_EQ(ThicknessText(12.5), "13");
    EXPECT_EQ(ThicknessText(1), "1");
    EXPECT_EQ(ThicknessText(0.18), "0.180");
    EXPECT_EQ(ThicknessText(0), "");
}

TEST(AbsorptionText, HasTwoDecimals) {
    EXPECT_EQ(AbsorptionText(0), "0.00");
    EXPECT_EQ(AbsorptionText(0.15F), "0.15");
    EXPECT_EQ(AbsorptionText(1), "1.00");
}

} // namespace
} // namespace strativo
