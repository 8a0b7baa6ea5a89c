#include "edit/WindowList.h"

#include "edit/ConstructionSlots.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>

namespace strativo {
namespace {

using testing::ElementsAre;

const WindowLine roof{"7", "Flat roof, f\xC3\xBCnf Lagen", "Opaque", "0.25"};

TEST(WindowLines, ShowNumberNameTypeAndUValue) {
    Project project;
    OpenConstructionWindow(project);
    OpenConstructionWindow(project);
    Construction& window = project.constructions[2];
    window.name = "T\xFCr";
    window.type = transparentType;
    EXPECT_EQ(LineOfConstruction(project, 2),
              (WindowLine{"2", "T\xC3\xBCr", "Transparent", "n/a"}));
    EXPECT_EQ(LineOfConstruction(project, 1), (WindowLine{"1", "Construction 1", "Opaque", "n/a"}));
    Layer& layer = window.layers.Edit(1);
    layer.name = "BRICK";
    layer.thickness = 100;
    layer.conductivity = 1;
    EXPECT_EQ(LineOfConstruction(project, 2).uValue, "3.57");
}

struct FilterRow {
    const char* name;
    const char* filter;
    bool matches;
};

class WindowFilter : public testing::TestWithParam<FilterRow> {};

TEST_P(WindowFilter, LooksAtAllThatIsShown) {
    EXPECT_EQ(Matches(roof, GetParam().filter), GetParam().matches);
}

constexpr FilterRow filters[] = {
    {"Nothing", "", true},
    {"Number", "7", true},
    {"OtherNumber", "8", false},
    {"Caption", "construction 7", true},
    {"Name", "roof", true},
    {"AnyLetterCase", "FLAT ROOF", true},
    {"LettersWithMarksToo", "F\xC3\x9CNF", true},
    {"Type", "opaq", true},
    {"OtherType", "transparent", false},
    {"UValue", "0.25", true},
    {"WordsOfSeveralColumns", "opaque 0.25 roof", true},
    {"OneWordThatIsNowhere", "roof floor", false},
    {"BlanksAtTheEnds", "  roof ", true},
    {"NoTextAcrossColumns", "Lagenopaque", false},
};

INSTANTIATE_TEST_SUITE_P(Texts, WindowFilter, testing::ValuesIn(filters),
                         [](const auto& row) { return row.param.name; });

TEST(WindowFilter, AWindowThatIsNoConstructionIsFoundByItsCaption) {
    const WindowLine dialog{"", "Select Material : stdmat.lby", "", ""};
    EXPECT_TRUE(Matches(dialog, "material std"));
    EXPECT_FALSE(Matches(dialog, "construction"));
}

constexpr int dialog = 0;
constexpr int glass = -1;

TEST(WindowsOfMenu, HaveTheNumbersOfTheConstructionsForDigits) {
    EXPECT_THAT(WindowsInMenu({1, 2, 3}, {dialog, glass}, 30),
                ElementsAre(MenuWindow{1, 1}, MenuWindow{2, 2}, MenuWindow{3, 3},
                            MenuWindow{dialog, 4}, MenuWindow{glass, 5}));
}

TEST(WindowsOfMenu, LeaveDigitsOfRemovedConstructionsToOthers) {
    EXPECT_THAT(
        WindowsInMenu({2, 4, 12}, {dialog}, 30),
        ElementsAre(MenuWindow{2, 2}, MenuWindow{4, 4}, MenuWindow{12, 1}, MenuWindow{dialog, 3}));
}

TEST(WindowsOfMenu, OnlyNineHaveADigit) {
    std::vector<int> constructions(20);
    std::iota(constructions.begin(), constructions.end(), 1);
    const auto windows = WindowsInMenu(constructions, {dialog}, 30);
    ASSERT_EQ(windows.size(), 21U);
    EXPECT_EQ(windows[8], (MenuWindow{9, 9}));
    EXPECT_EQ(windows[9], (MenuWindow{10, 0}));
    EXPECT_EQ(windows[20], (MenuWindow{dialog, 0}));
}

TEST(WindowsOfMenu, TheDialogIsAmongThemHoweverManyThereAre) {
    std::vector<int> constructions(5000);
    std::iota(constructions.begin(), constructions.end(), 1);
    const auto windows = WindowsInMenu(constructions, {dialog, glass}, 30);
    ASSERT_EQ(windows.size(), 30U);
    EXPECT_EQ(windows[27].id, 28);
    EXPECT_EQ(windows[28].id, dialog);
    EXPECT_EQ(windows[29].id, glass);
}

TEST(MaterialTargets, AreNamedWhileTheDialogIsActive) {
    Project project;
    project.dialogActive = true;
    EXPECT_EQ(MaterialTarget(project), "") << "there is none";
    OpenConstructionWindow(project);
    OpenConstructionWindow(project);
    EXPECT_EQ(MaterialTarget(project), "Materials go to Construction 2");
    project.constructions[2].name = "T\xFCr";
    EXPECT_EQ(MaterialTarget(project), "Materials go to Construction 2: T\xC3\xBCr");
    project.dialogActive = false;
    EXPECT_EQ(MaterialTarget(project), "");
}

} // namespace
} // namespace strativo
