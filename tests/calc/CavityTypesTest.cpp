#include "calc/CavityTypes.h"

#include "text/RuntimeError.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

struct NameRow {
    const char* test;
    int code;
    const char* name;
    bool named;
};

class CavityNames : public testing::TestWithParam<NameRow> {};

TEST_P(CavityNames, AreGivenToLayers) {
    EXPECT_EQ(CavityLayerName(GetParam().code), GetParam().name);
    EXPECT_EQ(IsNamedCavity(GetParam().code), GetParam().named);
}

constexpr NameRow rows[] = {
    {"Type1", -1, "CAVITY Type 1 NORMAL", true},
    {"Type2WithASmallLetter", -2, "CAVITY type 2 Low-E", true},
    {"Type3Misspelt", -3, "CAVITY Tyep 3 width = resistance", true},
    {"Type4HasNone", -4, "Unknown type -4", false},
    {"Type5", -5, "CAVITY Type 5 Normal Ventilated", true},
    {"Type6WithACapital", -6, "CAVITY Type 6 Low-E Ventilated", true},
    {"Type7HasNone", -7, "Unknown type -7", false},
    {"Type11", -11, "CAVITY Type 11 ISO15099", true},
    {"Type12HasNone", -12, "Unknown type -12", false},
    {"LargeCode", -32768, "Unknown type -32768", false},
};

INSTANTIATE_TEST_SUITE_P(Codes, CavityNames, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.test; });

TEST(AppendCavityEntries, WritesSixEntriesInTheirOrderAndTheMarker) {
    MaterialLibrary library;
    AppendCavityEntries(library, 3);
    const struct {
        const char* name;
        double code;
    } expected[] = {{"CAVITY Type 3 width = resistance", -3},
                    {"CAVITY Type 2 Low-E", -2},
                    {"CAVITY Type 1 NORMAL", -1},
                    {"CAVITY Type 5 Normal Ventilated", -5},
                    {"CAVITY Type 6 Low-e Ventilated", -6},
                    {"CAVITY Type 11 ISO15099", -11}};
    int row = 3;
    for (const auto& entry : expected) {
        EXPECT_EQ(library[row].name, entry.name);
        EXPECT_EQ(library[row].code, entry.code);
        EXPECT_EQ(library[row].conductivity, entry.code);
        EXPECT_EQ(library[row].density, 0);
        EXPECT_EQ(library[row].specificHeat, 0);
        ++row;
    }
    EXPECT_EQ(library[9].name, "-999");
    EXPECT_EQ(library[2].name, "");
}

TEST(AppendCavityEntries, FitsBehindNinetyThreeMaterials) {
    MaterialLibrary library;
    AppendCavityEntries(library, 94);
    EXPECT_EQ(library[99].name, "CAVITY Type 11 ISO15099");
    EXPECT_EQ(library[100].name, "-999");
}

TEST(AppendCavityEntries, IsErrorNineBehindNinetyFourMaterials) {
    MaterialLibrary library;
    try {
        AppendCavityEntries(library, 95);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::subscriptOutOfRange);
    }
}

} // namespace
} // namespace strativo
