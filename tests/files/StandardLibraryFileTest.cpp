#include "files/MaterialLibraryFile.h"
#include "support/Samples.h"
#include "text/RuntimeError.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

int ParsingFailure(const std::string& bytes) {
    try {
        const LibraryContent content = ParseStandardLibrary(bytes);
        return content.failure ? static_cast<int>(*content.failure) : 0;
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
}

std::string Records(int count) {
    std::string bytes;
    for (int number = 1; number <= count; ++number)
        bytes += std::to_string(number) + "'M' 1 2 3\n";
    return bytes;
}

void ExpectMaterial(const Material& material, double code, const std::string& name,
                    double conductivity, double density, double specificHeat) {
    EXPECT_EQ(material.code, code);
    EXPECT_EQ(material.name, name);
    EXPECT_EQ(material.conductivity, conductivity);
    EXPECT_EQ(material.density, density);
    EXPECT_EQ(material.specificHeat, specificHeat);
}

void ExpectCavities(const MaterialLibrary& library, int slot) {
    ExpectMaterial(library[slot], -3, "CAVITY Type 3 width = resistance", -3, 0, 0);
    ExpectMaterial(library[slot + 1], -2, "CAVITY Type 2 Low-E", -2, 0, 0);
    ExpectMaterial(library[slot + 2], -1, "CAVITY Type 1 NORMAL", -1, 0, 0);
    ExpectMaterial(library[slot + 3], -5, "CAVITY Type 5 Normal Ventilated", -5, 0, 0);
    ExpectMaterial(library[slot + 4], -6, "CAVITY Type 6 Low-e Ventilated", -6, 0, 0);
    ExpectMaterial(library[slot + 5], -11, "CAVITY Type 11 ISO15099", -11, 0, 0);
    EXPECT_EQ(library[slot + 6].name, endOfLibrary);
}

TEST(StandardLibraryFile, ReadsARecord) {
    const LibraryContent content = ParseStandardLibrary("12'FACE BRICK' 0.84 1700 800");
    EXPECT_FALSE(content.wrongVersion);
    ExpectMaterial(content.library[1], 12, "FACE BRICK", 0.84, 1700, 800);
    ExpectCavities(content.library, 2);
}

TEST(StandardLibraryFile, ReadsOneCharacterNamesAndNumbers) {
    ExpectMaterial(ParseStandardLibrary("5'X' 1 2 3").library[1], 5, "X", 1, 2, 3);
}

TEST(StandardLibraryFile, SkipsEmptyLines) {
    const LibraryContent content = ParseStandardLibrary("\n1'A' 1 2 3\n\n\n2'B' 4 5 6\n\n\n");
    EXPECT_EQ(MaterialCount(content.library), 8);
    ExpectMaterial(content.library[2], 2, "B", 4, 5, 6);
}

TEST(StandardLibraryFile, ReadsWindowsLineEndsTheSame) {
    const LibraryContent content = ParseStandardLibrary("\r\n1'A' 1 2 3\r\n\r\n2'B' 4 5 6\r\n");
    EXPECT_FALSE(content.wrongVersion);
    EXPECT_EQ(MaterialCount(content.library), 8);
    ExpectMaterial(content.library[2], 2, "B", 4, 5, 6);
}

TEST(StandardLibraryFile, SkipsBlanksTabsAndRestsAfterNumbers) {
    const LibraryContent content = ParseStandardLibrary(" 7x'n' \t  +1.5e1W \t .5kg  5.J rest\n");
    ExpectMaterial(content.library[1], 7, "N", 15, 0.5, 5);
}

TEST(StandardLibraryFile, ReadsTextWithoutANumberAsZero) {
    ExpectMaterial(ParseStandardLibrary("x'N' a b c").library[1], 0, "N", 0, 0, 0);
}

TEST(StandardLibraryFile, HoldsOnlyTheCavitiesWhenEmpty) {
    const LibraryContent content = ParseStandardLibrary("");
    EXPECT_FALSE(content.wrongVersion);
    ExpectCavities(content.library, 1);
}

TEST(StandardLibraryFile, HoldsNinetyThreeMaterials) {
    const LibraryContent content = ParseStandardLibrary(Records(93));
    EXPECT_EQ(content.library[93].code, 93);
    ExpectCavities(content.library, 94);
    EXPECT_EQ(MaterialCount(content.library), 99);
}

TEST(StandardLibraryFile, FailsWithARangeErrorFromTheNinetyFourthMaterial) {
    EXPECT_EQ(ParsingFailure(Records(94)), 9);
    EXPECT_EQ(ParsingFailure(Records(100)), 9);
    EXPECT_EQ(ParsingFailure(Records(101)), 9);
    EXPECT_EQ(ParsingFailure(Records(94) + "1'no end"), 5) << "the wrong line is met first";
}

TEST(StandardLibraryFile, HoldsWhatWasStoredBeforeTheFailureUpToItsLastRow) {
    const LibraryContent content = ParseStandardLibrary(Records(94));
    EXPECT_EQ(content.library[94].code, 94);
    EXPECT_EQ(content.library[95].code, -3);
    EXPECT_EQ(content.library[100].name, "CAVITY Type 11 ISO15099");
    EXPECT_EQ(MaterialCount(content.library), 100) << "there is no row left for the marker";
    EXPECT_EQ(ParseStandardLibrary(Records(98)).library[100].code, -2);
    EXPECT_EQ(ParseStandardLibrary(Records(101)).library[100].code, 100);
    const LibraryContent overflow =
        ParseStandardLibrary("1'A' 1 2 3\n1e999'B' 1 2 3\n2'C' 1 2 3\n");
    EXPECT_EQ(overflow.failure, ErrorNumber::overflow);
    EXPECT_EQ(overflow.library[1].name, "A");
    EXPECT_EQ(MaterialCount(overflow.library), 1);
}

TEST(StandardLibraryFile, IsOfWrongVersionBeforeItHasTooManyMaterials) {
    const LibraryContent content = ParseStandardLibrary(Records(94) + "no record\n");
    EXPECT_TRUE(content.wrongVersion);
    EXPECT_EQ(content.failure, ErrorNumber::subscriptOutOfRange);
    EXPECT_EQ(MaterialCount(content.library), 0);
    EXPECT_FALSE(ParseStandardLibrary(Records(101) + "no record\n").wrongVersion);
}

class WrongRecord : public testing::TestWithParam<const char*> {};

TEST_P(WrongRecord, LeavesTheCavitiesWhenItIsTheFirst) {
    const LibraryContent content = ParseStandardLibrary(std::string(GetParam()) + "\n2'B' 1 2 3\n");
    EXPECT_TRUE(content.wrongVersion);
    ExpectCavities(content.library, 1);
}

TEST_P(WrongRecord, EmptiesTheListWhenItComesLater) {
    const LibraryContent content = ParseStandardLibrary("1'A' 1 2 3\n" + std::string(GetParam()));
    EXPECT_TRUE(content.wrongVersion);
    EXPECT_EQ(MaterialCount(content.library), 0);
    ExpectCavities(content.library, 2);
}

INSTANTIATE_TEST_SUITE_P(Lines, WrongRecord,
                         testing::Values("no apostrophe", "'STARTS WITH ONE' 1 2 3", "5'", "5''",
                                         "5'X", "5'X' 7", "5'X'  7", " ", "\x1a",
                                         "12* FACE BRICK,0.84 1700 800"));

TEST(StandardLibraryFile, FailsWithAnInvalidArgumentWhereABlankIsMissing) {
    EXPECT_EQ(ParsingFailure("5'X' 1 2"), 5);
    EXPECT_EQ(ParsingFailure("5'X' 1 22"), 5);
    EXPECT_EQ(ParsingFailure("5'X' 12"), 5);
    EXPECT_EQ(ParsingFailure("5'X'"), 5);
    EXPECT_EQ(ParsingFailure("5'X' "), 5);
    EXPECT_EQ(ParsingFailure("5'X 1 2 3"), 5) << "no closing apostrophe";
}

TEST(StandardLibraryFile, FailsWithAnOverflowForANumberThatNoDoubleHolds) {
    EXPECT_EQ(ParsingFailure("1e999'X' 1 2 3"), 6);
    EXPECT_EQ(ParsingFailure("1'X' 1e999 2 3"), 6);
    EXPECT_EQ(ParsingFailure("1'X' 1 -1e999 3"), 6);
    EXPECT_EQ(ParsingFailure("1'X' 1 2 1e999"), 6);
}

TEST(StandardLibraryFile, ReadsTheLibraryThatComesWithTheProgram) {
    const LibraryContent content = ParseStandardLibrary(SourceFile("data/stdmat.lby"));
    EXPECT_FALSE(content.wrongVersion);
    EXPECT_EQ(MaterialCount(content.library), 91);
    ExpectMaterial(content.library[1], 100, "BRICK ENGINEERING 2240", 1.185, 2240, 790);
}

TEST(NormaliseMaterialName, RaisesLettersAndTheLeftBraceOnly) {
    EXPECT_EQ(NormaliseMaterialName("Face brick"), "FACE BRICK");
    EXPECT_EQ(NormaliseMaterialName("a{b}"), "A[B}");
    EXPECT_EQ(NormaliseMaterialName("`az|~\xe4\xe9 09"), "`AZ|~\xe4\xe9 09");
}

} // namespace
} // namespace strativo
