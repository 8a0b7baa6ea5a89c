#include "text/Format.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

struct PatternRow {
    const char* name;
    double value;
    const char* pattern;
    const char* text;
};

class FormatNumberRow : public testing::TestWithParam<PatternRow> {};

TEST_P(FormatNumberRow, GivesTheTextOfThePattern) {
    const PatternRow& row = GetParam();
    EXPECT_EQ(FormatNumber(row.value, row.pattern), row.text);
}

constexpr PatternRow rows[] = {
    {"ThicknessOfThreeDecimals", 0.1, "#0.000", "0.100"},
    {"ThicknessRoundedUp", 12.3456, "#0.000", "12.346"},
    {"HalfThatBinaryLiesBelow", 0.0135, "#0.000", "0.014"},
    {"HalfOfOneHundredth", 1.005, "#0.00", "1.01"},
    {"NegativeHalfAwayFromZero", -1.005, "#0.00", "-1.01"},
    {"HalfOfOneWhole", 0.5, "#0", "1"},
    {"TwoAndAHalfAwayFromZero", 2.5, "#", "3"},
    {"JustBelowAHalf", 0.49999999999999994, "#0", "0"},
    {"SixDecimals", 0.18, "#0.000000", "0.180000"},
    {"SixDecimalsOfAMillionth", 0.0000005, "#0.000000", "0.000001"},
    {"AbsorptionOfTwoDecimals", 0.15, "0.00", "0.15"},
    {"AbsorptionOfOne", 1, "0.00", "1.00"},
    {"WidenedFloatBelowAHalf", 0.125F, "0.00", "0.13"},
    {"MaterialNumber", 7, "##0", "7"},
    {"MaterialNumberOfThreeDigits", 123, "##0", "123"},
    {"CavityNumber", -3, "##0", "-3"},
    {"MaterialNumberBeyondThePattern", 12345, "##0", "12345"},
    {"ZeroMaterialNumber", 0, "##0", "0"},
    {"GlassOneDecimal", 0.5, "0.0##", "0.5"},
    {"GlassThreeDecimals", 0.523, "0.0##", "0.523"},
    {"GlassRoundedToThree", 0.5234, "0.0##", "0.523"},
    {"GlassRoundedToTrailingZeros", 0.5004, "0.0##", "0.5"},
    {"GlassOne", 1, "0.0##", "1.0"},
    {"GlassZero", 0, "0.0##", "0.0"},
    {"GlassFloat", 0.79F, "0.0##", "0.79"},
    {"GlassRoundedToNothing", 0.0004, "0.0##", "0.0"},
    {"GlassJustBelowHalfOfTheLastDigit", 0.000499999999999, "0.0##", "0.0"},
    {"GlassHalfOfTheLastDigit", 0.0005, "0.0##", "0.001"},
    {"CarryIntoAnotherDigit", 9.9996, "0.000", "10.000"},
    {"CarryIntoWholeNumber", 0.99995, "0.0000", "1.0000"},
    {"CarryOfAHalf", 0.9995, "0.000", "1.000"},
    {"WideNegative", -999, "0.000", "-999.000"},
    {"NoLeadingZero", 0.25, "##.00", ".25"},
    {"TwoDigits", 45, "##.0", "45.0"},
    {"NothingForZero", 0, "#####", ""},
    {"NothingBelowAHalf", 0.4, "#####", ""},
    {"OneFromAHalf", 0.5, "#####", "1"},
    {"WholeNumber", 99999.4, "#####", "99999"},
    {"WholeNumberBeyondThePattern", 99999.5, "#####", "100000"},
    {"LargeWholeNumber", 1e9, "#", "1000000000"},
    {"LargeHalf", 1234567890.5, "#", "1234567891"},
    {"VeryLargeNumber", 1e23, "#0.00", "100000000000000000000000.00"},
    {"Exponent", 300000, "#E+00", "3E+05"},
    {"ExponentOfOne", 1, "#E+00", "1E+00"},
    {"ExponentRoundedUp", 350000, "#E+00", "4E+05"},
    {"ExponentCarried", 950000, "#E+00", "1E+06"},
    {"ExponentOfThreeDigits", 2e123, "#E+00", "2E+123"},
    {"NegativeExponent", 0.00042, "#E+00", "4E-04"},
    {"ExponentOfZero", 0, "#E+00", "0E+00"},
    {"NegativeNumberWithExponent", -300000, "#E+00", "-3E+05"},
    {"MoreDecimalsThanPowersKept", 0.12345678, "0.0000000", "0.1234568"},
    {"MinusZeroHasNoSign", -0.0, "0.00", "0.00"},
    {"SmallestNumber", 5e-324, "#0.000", "0.000"},
};

INSTANTIATE_TEST_SUITE_P(Patterns, FormatNumberRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(NumberPattern, CountsItsPlaces) {
    constexpr NumberPattern pattern("0.0##");
    EXPECT_EQ(pattern.minWhole, 1);
    EXPECT_EQ(pattern.minDecimals, 1);
    EXPECT_EQ(pattern.maxDecimals, 3);
    EXPECT_FALSE(pattern.exponent);
    EXPECT_TRUE(NumberPattern("#E+00").exponent);
}

TEST(PutNumber, ReturnsTheEndOfTheNumber) {
    std::string text(longestNumber + 1, 'x');
    EXPECT_EQ(PutNumber(text.data(), -1.5, "0.00") - text.data(), 5);
    EXPECT_EQ(text.substr(0, 6), "-1.50x");
}

TEST(PutNumber, HasRoomForTheLongestNumber) {
    std::string text(longestNumber + 1, 'x');
    const double largest = std::numeric_limits<double>::max();
    const auto length = PutNumber(text.data(), -largest, "0.00") - text.data();
    EXPECT_EQ(length, 1 + 309 + 3);
    EXPECT_EQ(text[static_cast<std::size_t>(length)], 'x');
}

} // namespace
} // namespace strativo
