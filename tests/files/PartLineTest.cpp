#include "files/PartLine.h"

#include "support/TestProject.h"
#include "text/RuntimeError.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

class PartLine : public testing::Test {
protected:
    PartLine() { AddConstruction(project, {}); }

    /// The layer that the line gives.
    Layer Read(std::string_view line, bool transparent = false) {
        ParsePartLine(line, transparent, project);
        return project.constructions[1].layers[project.constructions[1].currentLayer];
    }

    int Failure(std::string_view line, bool transparent = false) {
        try {
            ParsePartLine(line, transparent, project);
            return 0;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(project.constructions[1].layers.HighestUsed(), 0) << "nothing was stored";
            return static_cast<int>(error.Number());
        }
    }

    Project project;
};

TEST_F(PartLine, GivesALayerOfTheStandardLibrary) {
    const Layer layer = Read("_ 1 =       12      0.100      0            ");
    EXPECT_EQ(layer.name, "1") << "its number, until it is linked";
    EXPECT_EQ(layer.materialCode, 12);
    EXPECT_EQ(layer.library, 1);
    EXPECT_EQ(layer.thickness, 100);
    EXPECT_EQ(layer.absorption, 0);
    EXPECT_EQ(layer.conductivity, 0);
    EXPECT_EQ(layer.density, 0);
    EXPECT_EQ(layer.specificHeat, 0);
    EXPECT_FALSE(project.userLibraryNeeded);
}

TEST_F(PartLine, GivesALayerOfTheUserLibrary) {
    const Layer layer = Read("_ 1 =      @7      0.012      0            ");
    EXPECT_EQ(layer.materialCode, 7);
    EXPECT_EQ(layer.library, 2);
    EXPECT_TRUE(project.userLibraryNeeded);
}

TEST_F(PartLine, OfAUserMaterialMakesTheLibraryNeededThoughItsNumbersFail) {
    EXPECT_EQ(Failure("_ 2 =      @12"), 5);
    EXPECT_TRUE(project.userLibraryNeeded);
}

TEST_F(PartLine, SkipsControlCharactersBeforeTheThicknessOnly) {
    EXPECT_EQ(Read("_ 1 = 12 \x01 0.1 0 0.5", true).thickness, 100);
    EXPECT_EQ(Read("_ 1 = \x01 12 0.1 0 0.5", true).materialCode, 0) << "the control is a piece";
    EXPECT_EQ(Read("_ 1 = 12 0.1 \x01 0.25 0.5", true).absorption, 0.25F);
    EXPECT_EQ(Read("_ 1 = 12 0.1 0 \x01 0.5", true).absorption, 0) << "the control is the piece";
}

TEST_F(PartLine, SkipsNoBlanksBehindTheUserMark) {
    const Layer layer = Read("_ 1 =      @ 7 0.012 0 ");
    EXPECT_EQ(layer.materialCode, 0) << "the text up to the next blank is empty";
    EXPECT_EQ(layer.thickness, 7000);
}

TEST_F(PartLine, KeepsACavityCodeAsConductivityToo) {
    const Layer layer = Read("_ 1 =       -3      0.000180   0            ");
    EXPECT_EQ(layer.materialCode, -3);
    EXPECT_EQ(layer.conductivity, -3);
    EXPECT_DOUBLE_EQ(layer.thickness, 0.18);
}

TEST_F(PartLine, ReadsTheAbsorptionOfATransparentConstructionOnly) {
    constexpr char line[] = "_ 1 =       12      0.006      0      0.15      ";
    EXPECT_EQ(Read(line, true).absorption, 0.15F);
    EXPECT_EQ(Read(line, false).absorption, 0);
}

TEST_F(PartLine, ReadsAMissingAbsorptionAsZero) {
    EXPECT_EQ(Read("_ 1 = 12 0.006 0", true).absorption, 0);
    EXPECT_EQ(Read("_ 1 = 12 0.006", true).absorption, 0);
    EXPECT_EQ(Read("_ 1 = 12 ", true).thickness, 0);
}

TEST_F(PartLine, RoundsTheMaterialNumberHalfToEven) {
    EXPECT_EQ(Read("_ 1 = 2.5 0.1 0").materialCode, 2);
    EXPECT_EQ(Read("_ 2 = 3.5 0.1 0").materialCode, 4);
    EXPECT_EQ(Read("_ 3 = -2.5 0.1 0").conductivity, -2);
}

TEST_F(PartLine, GivesAnEmptyLayerWhereTheNumberIsTheLastCharacter) {
    const Layer layer = Read("_ 1 = 5");
    EXPECT_EQ(layer.materialCode, 0);
    EXPECT_EQ(layer.thickness, 0);
    EXPECT_EQ(layer.library, 1);
    EXPECT_EQ(layer.name, "1");
    EXPECT_EQ(Read("_ 2 =@5").library, 2);
}

TEST_F(PartLine, FailsWithAnInvalidArgumentWhereABlankIsMissing) {
    EXPECT_EQ(Failure("_1=12"), 5);
    EXPECT_EQ(Failure("_ 1 ="), 5);
    EXPECT_EQ(Failure("_ 1 =      "), 5);
    EXPECT_EQ(Failure("_ 1 = @12"), 5);
    EXPECT_EQ(Failure("_ 1 12 0.1 0"), 5) << "neither mark";
}

TEST_F(PartLine, FailsWithAnOverflowForANumberThatItsTypeCannotHold) {
    EXPECT_EQ(Failure("_ 1 = 40000 0.1 0"), 6) << "16 bits";
    EXPECT_EQ(Failure("_ 1 = -32769 0.1 0"), 6);
    EXPECT_EQ(Failure("_ 1 = 1e999 0.1 0"), 6);
    EXPECT_EQ(Failure("_ 1 = 12 1e999 0"), 6);
    EXPECT_EQ(Failure("_ 1 = 12 1e308 0"), 6) << "in millimetres no double holds it";
    EXPECT_EQ(Failure("_ 1 = 12 0.1 0 1e39", true), 6) << "32-bit float";
}

TEST_F(PartLine, RefusesASixteenthLayer) {
    for (int slot = 1; slot <= 15; ++slot)
        EXPECT_TRUE(ParsePartLine("_ 1 = 12 0.1 0", false, project));
    EXPECT_FALSE(ParsePartLine("_ 16 = 99 0.9 0", false, project));
    EXPECT_EQ(LayerCount(project.constructions[1]), 15);
    EXPECT_EQ(project.constructions[1].layers[15].materialCode, 12);
    EXPECT_EQ(project.constructions[1].currentLayer, 15);
}

struct Number {
    const char* text;
    double value;
};

void PrintTo(const Number& number, std::ostream* out) {
    *out << number.text;
}

class PartLineNumber : public PartLine, public testing::WithParamInterface<Number> {};

TEST_P(PartLineNumber, IsTheLongestNumberAtTheStart) {
    const Layer layer = Read("_ 1 = 12 " + std::string(GetParam().text) + " 0");
    EXPECT_DOUBLE_EQ(layer.thickness, GetParam().value * 1000);
}

INSTANTIATE_TEST_SUITE_P(Texts, PartLineNumber,
                         testing::Values(Number{"+5", 5}, Number{"-5", -5}, Number{".5", 0.5},
                                         Number{"5.", 5}, Number{"1e", 1}, Number{"1e+", 1},
                                         Number{"1e-2x", 0.01}, Number{"1,5", 1}, Number{"0x10", 0},
                                         Number{"inf", 0}, Number{"nan", 0}, Number{"-", 0},
                                         Number{".", 0}, Number{"1e-999", 0}, Number{"++1", 0}));

} // namespace
} // namespace strativo
