#include "text/Numbers.h"

#include "text/RuntimeError.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace strativo {
namespace {

template <class Function>
int ErrorOf(Function function) {
    try {
        function();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
    return 0;
}

struct NumberRow {
    const char* name;
    const char* text;
    double value;
    bool whole = false; ///< the whole text is a number
};

class LeadingNumberRow : public testing::TestWithParam<NumberRow> {};

TEST_P(LeadingNumberRow, TakesTheLongestNumberAtTheStart) {
    EXPECT_EQ(LeadingNumber(GetParam().text), GetParam().value);
}

TEST_P(LeadingNumberRow, TellsNumbersFromOtherTexts) {
    const auto& [name, text, value, whole] = GetParam();
    EXPECT_EQ(WholeNumber(text), whole ? std::optional(value) : std::nullopt);
}

constexpr NumberRow rows[] = {
    {"Nothing", "", 0},
    {"Blanks", "   ", 0},
    {"Whole", "105", 105, true},
    {"LeadingBlanks", "  12", 12},
    {"LeadingTab", "\t12", 12},
    {"TrailingBlank", "12 ", 12},
    {"TrailingCarriageReturn", "800\r", 800},
    {"TwoNumbers", "12 34", 12},
    {"Sign", "-0.25", -0.25, true},
    {"PlusSign", "+5", 5, true},
    {"TwoSigns", "--5", 0},
    {"PlusAndMinus", "+-5", 0},
    {"BlankAfterSign", "- 5", 0},
    {"SignAlone", "-", 0},
    {"PointFirst", ".5", 0.5, true},
    {"SignAndPointFirst", "-.5", -0.5, true},
    {"PointLast", "5.", 5, true},
    {"PointAlone", ".", 0},
    {"TwoPoints", "1.2.3", 1.2},
    {"DecimalComma", "1,5", 1},
    {"FifteenDigits", "0.12345678901234", 0.12345678901234, true},
    {"SixteenDigits", "9.007199254740993", 9.007199254740993, true},
    {"SeventeenWholeDigits", "90071992547409931", 90071992547409931.0, true},
    {"ManyDecimals", "0.000000000000000000001", 1e-21, true},
    {"DigitsBeyondAnyWholeNumber", "123456789012345678901234567890",
     123456789012345678901234567890.0, true},
    {"Exponent", "2.5e3", 2500, true},
    {"CapitalExponent", "2.5E-3", 0.0025, true},
    {"ExponentWithPlus", "1e+2", 100, true},
    {"ExponentWithoutDigits", "1e", 1},
    {"ExponentWithSignOnly", "1e+", 1},
    {"ExponentBroken", "1e-x", 1},
    {"ExponentAlone", "e5", 0},
    {"Hexadecimal", "0x10", 0},
    {"Infinity", "inf", 0},
    {"NegativeInfinity", "-infinity", 0},
    {"NotANumber", "nan", 0},
    {"Word", "BRICK", 0},
    {"UnitBehind", "105mm", 105},
    {"ManyDigits", "0.1000000000000000055511151231257827", 0.1, true},
    {"Largest", "1.7976931348623157e308", std::numeric_limits<double>::max(), true},
    {"Denormal", "1e-310", 1e-310, true},
    {"SmallestDenormal", "4.9406564584124654e-324", 5e-324, true},
    {"Underflow", "1e-999", 0, true},
    {"UnderflowOfAHugeExponent", "1e-99999999999999999999", 0, true},
    {"ZeroWithAHugeExponent", "0e999", 0, true},
};

TEST(LeadingNumber, IsTheNearestDoubleOfEveryShortDecimal) {
    for (int value = 0; value <= 20000; ++value) {
        const std::string digits = std::to_string(value);
        for (const char* decimals : {".0", ".001", ".6375", ".000007", ".99999999"}) {
            const std::string text = digits + decimals;
            EXPECT_EQ(LeadingNumber(text), std::strtod(text.c_str(), nullptr)) << text;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, LeadingNumberRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(LeadingNumber, UnderflowsByManyZeros) {
    const std::string zeros(400, '0');
    EXPECT_EQ(LeadingNumber("0." + zeros + "1"), 0);
    EXPECT_EQ(LeadingNumber("-." + zeros + "1"), 0);
    EXPECT_EQ(LeadingNumber("0." + zeros + "1e5"), 0);
    EXPECT_EQ(LeadingNumber("0." + zeros + "1e401"), 1);
}

TEST(LeadingNumber, TakesHundredsOfDigits) {
    EXPECT_EQ(LeadingNumber(std::string(300, '0') + "7"), 7);
    EXPECT_EQ(LeadingNumber(std::string(400, '9') + "e-400"), 1);
    EXPECT_EQ(LeadingNumber("1" + std::string(300, '0')), 1e300);
}

struct OverflowRow {
    const char* name;
    std::string text;
};

class LeadingNumberOverflow : public testing::TestWithParam<OverflowRow> {};

TEST_P(LeadingNumberOverflow, IsErrorSix) {
    EXPECT_EQ(ErrorOf([] { LeadingNumber(GetParam().text); }), 6);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, LeadingNumberOverflow,
    testing::Values(OverflowRow{"Exponent", "1e999"}, OverflowRow{"Negative", "-1e999"},
                    OverflowRow{"ExponentWithPlus", "1e+999 rest"},
                    OverflowRow{"HugeExponent", "1e99999999999999999999"},
                    OverflowRow{"JustBeyond", "1.8e308"},
                    OverflowRow{"Digits", std::string(400, '9')},
                    OverflowRow{"ZerosBefore", "0" + std::string(400, '9')},
                    OverflowRow{"NegativeExponent", std::string(400, '9') + ".5e-5"}),
    [](const auto& row) { return row.param.name; });

TEST(WholeNumber, BeyondADoubleIsErrorSix) {
    EXPECT_EQ(ErrorOf([] { WholeNumber("-1e999"); }), 6);
    EXPECT_EQ(WholeNumber("1e999 rest"), std::nullopt);
}

TEST(LeadingNumber, IgnoresBytesBehindTheView) {
    EXPECT_EQ(LeadingNumber(std::string_view("12345", 2)), 12);
    EXPECT_EQ(LeadingNumber(std::string_view("1e5", 2)), 1);
}

TEST(ToSingle, RoundsToA32BitFloat) {
    EXPECT_EQ(ToSingle(0.1), 0.1F);
    EXPECT_EQ(ToSingle(-1e-60), 0.0F);
    EXPECT_EQ(ToSingle(std::numeric_limits<float>::max()), std::numeric_limits<float>::max());
}

TEST(ToSingle, TakesWhatRoundsToTheLargest32BitFloat) {
    constexpr float largest = std::numeric_limits<float>::max();
    EXPECT_EQ(ToSingle(3.4028235e38), largest);
    EXPECT_EQ(ToSingle(-3.4028235e38), -largest);
    EXPECT_EQ(ToSingle(3.4028235677973362e38), largest);
    EXPECT_EQ(ErrorOf([] { ToSingle(3.4028235677973366e38); }), 6);
}

TEST(ToSingle, BeyondA32BitFloatIsErrorSix) {
    EXPECT_EQ(ErrorOf([] { ToSingle(1e39); }), 6);
    EXPECT_EQ(ErrorOf([] { ToSingle(-1e39); }), 6);
    EXPECT_EQ(ErrorOf([] { ToSingle(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(ToInteger, RoundsHalvesToTheEvenNumber) {
    EXPECT_EQ(ToInteger(2.5), 2);
    EXPECT_EQ(ToInteger(3.5), 4);
    EXPECT_EQ(ToInteger(-2.5), -2);
    EXPECT_EQ(ToInteger(12.4), 12);
    EXPECT_EQ(ToInteger(32767.4), 32767);
    EXPECT_EQ(ToInteger(-32768.5), -32768);
}

TEST(ToInteger, BeyondSixteenBitsIsErrorSix) {
    EXPECT_EQ(ErrorOf([] { ToInteger(32768); }), 6);
    EXPECT_EQ(ErrorOf([] { ToInteger(-32769); }), 6);
    EXPECT_EQ(ErrorOf([] { ToInteger(1e300); }), 6);
    EXPECT_EQ(ErrorOf([] { ToInteger(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(RuntimeError, CarriesItsNumberAndSaysIt) {
    const RuntimeError error(ErrorNumber::fileNotFound);
    EXPECT_EQ(error.Number(), ErrorNumber::fileNotFound);
    EXPECT_STREQ(error.what(), "Run-time error 53");
}

} // namespace
} // namespace strativo
