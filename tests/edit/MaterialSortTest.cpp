#include "calc/CavityTypes.h"
#include "edit/MaterialList.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

struct LessRow {
    const char* name;
    const char* a;
    const char* b;
    bool less;
};

class NameLessRow : public testing::TestWithParam<LessRow> {};

TEST_P(NameLessRow, ComparesByByteCode) {
    EXPECT_EQ(NameLess(GetParam().a, GetParam().b), GetParam().less);
}

constexpr LessRow rows[] = {
    {"Smaller", "A", "B", true},
    {"Larger", "B", "A", false},
    {"Equal", "A", "A", false},
    {"CapitalBeforeSmall", "Z", "a", true},
    {"SmallAfterCapital", "a", "Z", false},
    {"PrefixIsNotLess", "BRICK", "BRICK INNER", false},
    {"NorIsWhatItBegins", "BRICK INNER", "BRICK", false},
    {"EmptyIsNotLess", "", "A", false},
    {"NothingIsLessThanEmpty", "A", "", false},
    {"CodesAbove127ComeLast", "z", "\xE9", true},
    {"AndAreNotNegative", "\xE9", "z", false},
};

INSTANTIATE_TEST_SUITE_P(Names, NameLessRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

class MaterialSort : public testing::Test {
protected:
    /// Fills a library; behind its end marker stands a stale material.
    static void Fill(MaterialLibrary& library, const std::vector<Material>& materials) {
        int slot = 1;
        for (const Material& material : materials)
            library[slot++] = material;
        library[slot].name = endOfLibrary;
        library[slot + 1].name = "A STALE ONE";
    }
    static std::vector<std::string> NamesOf(const MaterialLibrary& library) {
        std::vector<std::string> names;
        for (int slot = 1; slot <= MaterialCount(library); ++slot)
            names.push_back(library[slot].name);
        return names;
    }

    using Names = std::vector<std::string>;
    Project project;
};

TEST_F(MaterialSort, ByNameIsCaseSensitive) {
    Fill(project.standardLibrary, {{1, "brick"}, {2, "BRICK"}, {3, "Brick"}});
    SortByName(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), (Names{"BRICK", "Brick", "brick"}));
}

TEST_F(MaterialSort, ByNameNeverSwapsANameWithOneItBegins) {
    Fill(project.standardLibrary, {{1, "BRICK INNER"}, {2, "BRICK"}, {3, "ASH"}});
    SortByName(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), (Names{"ASH", "BRICK INNER", "BRICK"}));
}

TEST_F(MaterialSort, MovesWholeRecords) {
    Fill(project.standardLibrary, {{2, "B", 0.5, 20, 200}, {1, "A", 0.25, 10, 100}});
    SortByName(project);
    const Material& first = project.standardLibrary[1];
    EXPECT_EQ(first.code, 1);
    EXPECT_EQ(first.conductivity, 0.25);
    EXPECT_EQ(first.density, 10);
    EXPECT_EQ(first.specificHeat, 100);
}

TEST_F(MaterialSort, ByConductivityPutsCavitiesFirst) {
    project.standardLibrary[1] = {1, "FOIL", 0, 0, 0};
    project.standardLibrary[2] = {2, "BRICK", 0.84, 1700, 800};
    project.standardLibrary[3] = {3, "WOOL", 0.04, 12, 1030};
    AppendCavityEntries(project.standardLibrary, 4);
    SortByConductivity(project);
    std::vector<double> codes;
    for (int slot = 1; slot <= 6; ++slot)
        codes.push_back(project.standardLibrary[slot].conductivity);
    EXPECT_EQ(codes, (std::vector<double>{-11, -6, -5, -3, -2, -1}));
    EXPECT_EQ(project.standardLibrary[7].name, "FOIL");
    EXPECT_EQ(project.standardLibrary[9].name, "BRICK");
    EXPECT_EQ(project.standardLibrary[10].name, "-999");
}

TEST_F(MaterialSort, ByDensityAndHeatKeepsTheOrderOfCavities) {
    AppendCavityEntries(project.standardLibrary, 1);
    const Names before = NamesOf(project.standardLibrary);
    SortByDensity(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), before);
    SortBySpecificHeat(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), before);
}

TEST_F(MaterialSort, ByDensityPutsNegativeMarksFirst) {
    Fill(project.standardLibrary,
         {{1, "BRICK", 0, 1700}, {2, "ONE", 0, -1}, {3, "ELEVEN", 0, -11}});
    SortByDensity(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), (Names{"ELEVEN", "ONE", "BRICK"}));
}

TEST_F(MaterialSort, BySpecificHeat) {
    Fill(project.standardLibrary, {{1, "A", 0, 0, 1000}, {2, "B", 0, 0, 800}, {3, "C", 0, 0, 900}});
    SortBySpecificHeat(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), (Names{"B", "C", "A"}));
}

TEST_F(MaterialSort, KeepsTheOrderOfEqualOnesWhateverOtherSortsLeft) {
    Fill(project.standardLibrary, {{1, "B", 0.5, 1}, {2, "A", 0.5, 2}, {3, "C", 0.1, 3}});
    SortByConductivity(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), (Names{"C", "B", "A"}));
    SortByName(project);
    SortByConductivity(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), (Names{"C", "A", "B"}));
}

TEST_F(MaterialSort, LeavesAnEmptyLibraryAlone) {
    Fill(project.standardLibrary, {});
    SortByName(project);
    SortByConductivity(project);
    EXPECT_EQ(MaterialCount(project.standardLibrary), 0);
    EXPECT_EQ(project.standardLibrary[2].name, "A STALE ONE");
}

TEST_F(MaterialSort, WorksOnTheShownLibraryOnly) {
    Fill(project.standardLibrary, {{1, "B"}, {2, "A"}});
    Fill(project.userLibrary, {{1, "D"}, {2, "C"}});
    project.shownLibrary = userLibraryNumber;
    SortByName(project);
    EXPECT_EQ(NamesOf(project.standardLibrary), (Names{"B", "A"}));
    EXPECT_EQ(NamesOf(project.userLibrary), (Names{"C", "D"}));
}

} // namespace
} // namespace strativo
