#include "files/MaterialLibraryFile.h"
#include "support/Samples.h"
#include "text/RuntimeError.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

int ParsingFailure(const std::string& bytes) {
    try {
        const LibraryContent content = ParseUserLibrary(bytes);
        return content.failure ? static_cast<int>(*content.failure) : 0;
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.Number());
    }
}

std::string Records(int count) {
    std::string bytes;
    for (int number = 1; number <= count; ++number)
        bytes += std::to_string(number) + "* MM,1 2 3\n";
    return bytes;
}

void ExpectOnly(const std::string& bytes, double code, const std::string& name, double conductivity,
                double density, double specificHeat) {
    const LibraryContent content = ParseUserLibrary(bytes);
    EXPECT_FALSE(content.wrongVersion) << bytes;
    ASSERT_EQ(MaterialCount(content.library), 1) << bytes;
    const Material& material = content.library[1];
    EXPECT_EQ(material.code, code) << bytes;
    EXPECT_EQ(material.name, name) << bytes;
    EXPECT_EQ(material.conductivity, conductivity) << bytes;
    EXPECT_EQ(material.density, density) << bytes;
    EXPECT_EQ(material.specificHeat, specificHeat) << bytes;
}

TEST(UserLibraryFile, ReadsARecordHoweverItIsQuoted) {
    ExpectOnly("12* FACE BRICK,0.84 1700 800", 12, "FACE BRICK", 0.84, 1700, 800);
    ExpectOnly("12* FACE BRICK,0.84 1700 800\n", 12, "FACE BRICK", 0.84, 1700, 800);
    ExpectOnly("\"12* FACE BRICK\",0.84 1700 800\r\n", 12, "FACE BRICK", 0.84, 1700, 800);
    ExpectOnly("12* face brick,\"0.84 1700 800\"\r\n", 12, "FACE BRICK", 0.84, 1700, 800);
    ExpectOnly("  \"12* Face brick\" , \"0.84 1700 800\" \r\n", 12, "FACE BRICK", 0.84, 1700, 800);
}

TEST(UserLibraryFile, SeparatesFieldsByLineEndsToo) {
    ExpectOnly("12* FACE BRICK\r\n0.84 1700 800\r\n", 12, "FACE BRICK", 0.84, 1700, 800);
}

TEST(UserLibraryFile, LetsAQuotedFieldHoldCommas) {
    ExpectOnly("\"12* BRICK, FACE\",0.84 1700 800", 12, "BRICK, FACE", 0.84, 1700, 800);
}

TEST(UserLibraryFile, TakesAQuoteWithoutEndUpToTheEndOfTheFile) {
    ExpectOnly("12* AB,\"1 2 3", 12, "AB", 1, 2, 3);
}

TEST(UserLibraryFile, IgnoresTextBetweenAsteriskAndBlank) {
    ExpectOnly("12*old   NAME,1 2 3", 12, "NAME", 1, 2, 3);
}

TEST(UserLibraryFile, SkipsBlanksBetweenNumbers) {
    ExpectOnly("1* AB,1.5e1 \t .5   5. rest", 1, "AB", 15, 0.5, 5);
}

TEST(UserLibraryFile, ReadsAnEmptyNameWhereOnlyBlanksFollow) {
    ExpectOnly("\"12*  \",1 2 3", 12, "", 1, 2, 3);
}

TEST(UserLibraryFile, SkipsRecordsWithAnEmptyFirstField) {
    ExpectOnly(",1 2 3\r\n12* AB,1 2 3\r\n", 12, "AB", 1, 2, 3);
    ExpectOnly("12* AB,1 2 3\r\n\r\n", 12, "AB", 1, 2, 3);
    ExpectOnly("\"\",x\n12* AB,1 2 3", 12, "AB", 1, 2, 3);
}

TEST(UserLibraryFile, NeverContainsCavities) {
    EXPECT_EQ(MaterialCount(ParseUserLibrary("").library), 0);
    EXPECT_EQ(MaterialCount(ParseUserLibrary(userLibraryBytes).library), 2);
}

TEST(UserLibraryFile, HoldsNinetyNineMaterials) {
    const LibraryContent content = ParseUserLibrary(Records(99));
    EXPECT_EQ(MaterialCount(content.library), 99);
    EXPECT_EQ(content.library[100].name, endOfLibrary);
}

TEST(UserLibraryFile, FailsWithARangeErrorFromTheHundredthMaterial) {
    EXPECT_EQ(ParsingFailure(Records(100)), 9);
    EXPECT_EQ(ParsingFailure(Records(101)), 9);
}

TEST(UserLibraryFile, HoldsWhatWasStoredBeforeTheFailureUpToItsLastRow) {
    const LibraryContent full = ParseUserLibrary(Records(100));
    EXPECT_EQ(full.library[100].code, 100);
    EXPECT_EQ(MaterialCount(full.library), 100) << "there is no row left for the marker";
    const LibraryContent overflow = ParseUserLibrary("1* AB,1 2 3\n2* CD,1e999 2 3\n");
    EXPECT_EQ(overflow.failure, ErrorNumber::overflow);
    EXPECT_EQ(MaterialCount(overflow.library), 1);
}

TEST(UserLibraryFile, IsOfWrongVersionBeforeItHasTooManyMaterials) {
    const LibraryContent content = ParseUserLibrary(Records(100) + "no record\n");
    EXPECT_TRUE(content.wrongVersion);
    EXPECT_EQ(content.failure, ErrorNumber::subscriptOutOfRange);
    EXPECT_EQ(MaterialCount(content.library), 0);
}

class WrongUserRecord : public testing::TestWithParam<const char*> {};

TEST_P(WrongUserRecord, EmptiesTheLibraryWhereverItStands) {
    const LibraryContent first = ParseUserLibrary(GetParam());
    EXPECT_TRUE(first.wrongVersion);
    EXPECT_EQ(MaterialCount(first.library), 0);
    const LibraryContent later = ParseUserLibrary("1* AB,1 2 3\n" + std::string(GetParam()));
    EXPECT_TRUE(later.wrongVersion);
    EXPECT_EQ(MaterialCount(later.library), 0);
}

INSTANTIATE_TEST_SUITE_P(Records, WrongUserRecord,
                         testing::Values("no asterisk,1 2 3", "* AB,1 2 3", "12*,1 2 3",
                                         "12*A,1 2 3", "12* A,1 2 3", "12*x  A,1 2 3", "12* AB,1 2",
                                         "12'FACE BRICK' 0.84 1700 800"));

TEST(UserLibraryFile, FailsWithAnInvalidArgumentWhereABlankIsMissing) {
    EXPECT_EQ(ParsingFailure("12*NAME,1 2 3"), 5);
    EXPECT_EQ(ParsingFailure("12* AB"), 5) << "no second field";
    EXPECT_EQ(ParsingFailure("12* AB,1"), 5);
    EXPECT_EQ(ParsingFailure("12* AB,1 22"), 5);
    EXPECT_EQ(ParsingFailure("12* AB,\"1 \""), 5);
}

TEST(UserLibraryFile, FailsWithAnOverflowForANumberThatNoDoubleHolds) {
    EXPECT_EQ(ParsingFailure("1e999* AB,1 2 3"), 6);
    EXPECT_EQ(ParsingFailure("1* AB,1 2 1e999"), 6);
}

TEST(UserLibraryFile, ReadsTheExampleThatComesWithTheProgram) {
    const LibraryContent content = ParseUserLibrary(SourceFile("data/examples/user.lby"));
    EXPECT_FALSE(content.wrongVersion);
    EXPECT_EQ(MaterialCount(content.library), 10);
    EXPECT_EQ(content.library[1].name, "CALCIUM SILICATE, BOARD 270");
    EXPECT_EQ(content.library[2].conductivity, 0.039);
}

} // namespace
} // namespace strativo
