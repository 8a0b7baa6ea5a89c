#include "edit/MaterialList.h"

#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(FormatMaterialLine, OfABrick) {
    EXPECT_EQ(FormatMaterialLine({12, "FACE BRICK", 0.84, 1700, 800}),
              "FACE BRICK                          0.840      1700       800");
}

TEST(FormatMaterialLine, CutsTheNameToThirtyThreeCharacters) {
    const std::string line = FormatMaterialLine({1, std::string(40, 'N'), 0.84, 1700, 800});
    EXPECT_EQ(line.substr(0, 35), std::string(33, 'N') + "  ");
    EXPECT_EQ(line.size(), 61U);
}

struct LineRow {
    const char* name;
    double conductivity;
    double density;
    double specificHeat;
    const char* numbers; ///< the line from column 36 on
};

class MaterialLineNumbers : public testing::TestWithParam<LineRow> {};

TEST_P(MaterialLineNumbers, StandInTheirColumns) {
    const LineRow& row = GetParam();
    EXPECT_EQ(FormatMaterialLine({1, "X", row.conductivity, row.density, row.specificHeat}),
              "X" + std::string(34, ' ') + row.numbers);
}

constexpr LineRow rows[] = {
    {"Insulation", 0.035, 12, 1030, " 0.035        12      1030"},
    {"OneHasTwoDecimals", 1.5, 2000, 1000, "  1.50      2000      1000"},
    {"TenHasOneDecimal", 45, 7800, 480, "  45.0      7800       480"},
    {"HundredIsWhole", 160, 2800, 896, "   160      2800       896"},
    {"ExactlyOneHasTwoDecimals", 1, 1, 1, "  1.00         1         1"},
    {"ExactlyTenHasOneDecimal", 10, 1, 1, "  10.0         1         1"},
    {"ExactlyHundredIsWhole", 100, 1, 1, "   100         1         1"},
    {"BelowHundredThousandIsWhole", 99999, 99999, 99999, " 99999     99999     99999"},
    {"HundredThousandHasAnExponent", 300000, 100000, 250000, " 3E+05     1E+05     3E+05"},
    {"PatternIsChosenBeforeRounding", 9.999, 99999.6, 0.5, " 10.00    100000         1"},
    {"RoundsUpToOne", 0.9999, 1, 1, " 1.000         1         1"},
    {"RoundsUpToHundred", 99.96, 1, 1, " 100.0         1         1"},
    {"ZeroConductivityShowsAndZeroDensityDoesNot", 0, 0, 0.4, " 0.000                    "},
    {"CavityDoesNotApply", -11, 0, 0, "   n/a                    "},
    {"NegativeMarks", -1, -1, -999, "   n/a       n/a       n/a"},
    {"LongTextPushes", 1e5, 1e123, 1, " 1E+05    1E+123         1"},
};

INSTANTIATE_TEST_SUITE_P(Lines, MaterialLineNumbers, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

class MaterialListTest : public testing::Test {
protected:
    MaterialListTest() {
        project.standardLibrary[1] = {12, "FACE BRICK", 0.84, 1700, 800};
        project.standardLibrary[2] = {20, "PLASTER", 0.5, 1300, 1000};
        project.standardLibrary[3].name = endOfLibrary;
        project.userLibrary[1].name = endOfLibrary;
        project.standardLibraryFile = "std.lby";
        project.userLibraryFile = "mine.lby";
    }
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(MaterialListTest, HasALineForEachMaterialOfTheShownLibrary) {
    const std::vector<std::string> lines = MaterialLines(project);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], FormatMaterialLine(project.standardLibrary[1]));
    EXPECT_EQ(lines[1], FormatMaterialLine(project.standardLibrary[2]));
    project.shownLibrary = userLibraryNumber;
    EXPECT_TRUE(MaterialLines(project).empty());
}

TEST_F(MaterialListTest, IsCaptionedWithTheShownLibrary) {
    EXPECT_EQ(MaterialListCaption(project), "Select Material : std.lby");
    project.shownLibrary = userLibraryNumber;
    EXPECT_EQ(MaterialListCaption(project), "Select Material : mine.lby");
}

TEST_F(MaterialListTest, HasNothingSelectedAfterARefresh) {
    project.selectedMaterial = 2;
    RefreshMaterialList(project);
    EXPECT_EQ(project.selectedMaterial, 0);
}

TEST_F(MaterialListTest, ShowsALibraryWithNothingSelected) {
    project.selectedMaterial = 2;
    ShowLibrary(project, userLibraryNumber);
    EXPECT_EQ(project.shownLibrary, 2);
    EXPECT_EQ(project.selectedMaterial, 0);
    ShowLibrary(project, standardLibraryNumber);
    EXPECT_EQ(project.shownLibrary, 1);
}

} // namespace
} // namespace strativo
