#include "text/Format.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(LeftField, CutsAndPadsOnTheRight) {
    EXPECT_EQ(LeftField("BRICK", 8, 10), "BRICK     ");
    EXPECT_EQ(LeftField("BRICK OUTER", 8, 10), "BRICK OU  ");
    EXPECT_EQ(LeftField("BRICK", 8, 3), "BRICK");
    EXPECT_EQ(LeftField("", 8, 3), "   ");
}

TEST(RightField, PadsOnTheLeftAndNeverCuts) {
    EXPECT_EQ(RightField("105", 6), "   105");
    EXPECT_EQ(RightField("123456", 6), "123456");
    EXPECT_EQ(RightField("-999.000", 6), "-999.000");
}

TEST(SignPositionNumber, LeavesABlankForThePlusSign) {
    EXPECT_EQ(SignPositionNumber(1), " 1");
    EXPECT_EQ(SignPositionNumber(0), " 0");
    EXPECT_EQ(SignPositionNumber(-4), "-4");
}

struct GeneralRow {
    const char* name;
    double value;
    const char* text;
};

class FormatGeneralRow : public testing::TestWithParam<GeneralRow> {};

TEST_P(FormatGeneralRow, GivesTheShortestNumber) {
    EXPECT_EQ(FormatGeneral(GetParam().value), GetParam().text);
}

constexpr GeneralRow rows[] = {
    {"One", 1, "1"},
    {"Negative", -4, "-4"},
    {"Fraction", 0.5, "0.5"},
    {"HundredThousand", 100000, "100000"},
    {"FifteenDigits", 123456789012345, "123456789012345"},
    {"BeyondFifteenDigits", 1e20, "1e+20"},
};

INSTANTIATE_TEST_SUITE_P(General, FormatGeneralRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace strativo
