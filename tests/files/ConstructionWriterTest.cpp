#include "files/ConstructionWriter.h"

#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

class ConstructionWriter : public testing::Test {
protected:
    ConstructionWriter() { project.standardLibraryFile = "stdmat.lby"; }

    /// The first part line of construction 1.
    std::string PartLine() {
        const std::string bytes = FormatConstructionFile(project);
        const auto start = bytes.find('_');
        return bytes.substr(start, bytes.find('\r', start) - start);
    }

    Layer& AddLayer(const std::string& name) {
        AddConstruction(project, {name});
        project.constructions[1].name = "Wall";
        return project.constructions[1].layers.Edit(1);
    }

    ScriptedPrompts prompts;
    Project project;
};

TEST_F(ConstructionWriter, NamesOnlyTheLibraryOfAnEmptyProject) {
    EXPECT_EQ(FormatConstructionFile(project), "!MATERIALS FILE = 'stdmat.lby'\r\n\r\n");
}

TEST_F(ConstructionWriter, WritesTheSingleBlankOfALibraryNotLoadedYet) {
    project.standardLibraryFile = singleBlank;
    EXPECT_EQ(FormatConstructionFile(project), "!MATERIALS FILE = ' '\r\n\r\n");
}

TEST_F(ConstructionWriter, NamesTheUserLibraryOnlyWhenItIsLoaded) {
    project.userLibraryFile = "C:\\lib\\user \xe9.lby";
    project.comments.userLibrary = {" of the user"};
    EXPECT_EQ(FormatConstructionFile(project), "!MATERIALS FILE = 'stdmat.lby'\r\n\r\n");
    project.userLoaded = true;
    EXPECT_EQ(FormatConstructionFile(project),
              Lines({"!MATERIALS FILE = 'stdmat.lby'",
                     "!MATERIALS USER FILE = 'C:\\lib\\user \xe9.lby'", "* of the user", ""}));
}

TEST_F(ConstructionWriter, WritesAPartLineColumnByColumn) {
    AddLayer("FACE BRICK").materialCode = 12;
    EXPECT_EQ(PartLine(), "_ 1 =       12      0.100      0            * FACE BRICK");
}

TEST_F(ConstructionWriter, StartsTheMaterialNumberInTheSamePlaceForTheUserLibrary) {
    Layer& layer = AddLayer("HEMP");
    layer.library = userLibraryNumber;
    layer.materialCode = 7;
    layer.thickness = 12.3456;
    EXPECT_EQ(PartLine(), "_ 1 =      @7      0.012      0            * HEMP");
}

TEST_F(ConstructionWriter, WritesTheAbsorptionOfATransparentConstruction) {
    Layer& layer = AddLayer("GLASS");
    layer.materialCode = 123;
    layer.thickness = 6;
    layer.absorption = 0.15F;
    project.constructions[1].type = transparentType;
    EXPECT_EQ(PartLine(), "_ 1 =       123      0.006      0      0.15      * GLASS");
    layer.absorption = 1;
    EXPECT_EQ(PartLine(), "_ 1 =       123      0.006      0      1.00      * GLASS");
}

TEST_F(ConstructionWriter, WritesTheResistanceOfACavityWithSixDecimals) {
    Layer& layer = AddLayer("CAVITY Tyep 3 width = resistance");
    layer.materialCode = -3;
    layer.conductivity = -3;
    layer.thickness = 0.18;
    EXPECT_EQ(PartLine(),
              "_ 1 =       -3      0.000180   0            * CAVITY Tyep 3 width = resistance");
}

TEST_F(ConstructionWriter, WritesTheThicknessOfOtherCavitiesWithThreeDecimals) {
    Layer& layer = AddLayer("CAVITY Type 11 ISO15099");
    layer.materialCode = -11;
    layer.conductivity = -11;
    layer.thickness = 50;
    EXPECT_EQ(PartLine(), "_ 1 =       -11      0.050      0            * CAVITY Type 11 ISO15099");
}

TEST_F(ConstructionWriter, WritesAMaterialNumberedZeroByItsRoundedConductivity) {
    Layer& layer = AddLayer("ODD");
    layer.materialCode = 0;
    layer.conductivity = 1.5F;
    EXPECT_EQ(PartLine(), "_ 1 =       2      0.100      0            * ODD");
}

TEST_F(ConstructionWriter, WritesNoMaterialNumberThatCannotBeRead) {
    Layer& layer = AddLayer("ODD");
    layer.materialCode = 0;
    layer.conductivity = 1e30F;
    EXPECT_EQ(PartLine(), "_ 1 =       32767      0.100      0            * ODD");
    layer.conductivity = -1e30F;
    EXPECT_EQ(PartLine(), "_ 1 =       -32768      0.100      0            * ODD");
}

TEST_F(ConstructionWriter, WritesALayersNameOnOneLine) {
    AddLayer("TWO\n!EOF LINES").materialCode = 12;
    EXPECT_EQ(PartLine(), "_ 1 =       12      0.100      0            * TWO !EOF LINES");
}

TEST_F(ConstructionWriter, RoundsTheThicknessHalfAwayFromZero) {
    Layer& layer = AddLayer("A");
    layer.thickness = 13.5;
    EXPECT_EQ(PartLine(), "_ 1 =       1      0.014      0            * A");
    layer.thickness = 12345.6;
    EXPECT_EQ(PartLine(), "_ 1 =       1      12.346      0            * A");
    layer.thickness = 0;
    EXPECT_EQ(PartLine(), "_ 1 =       1      0.000      0            * A");
}

TEST_F(ConstructionWriter, NumbersPartLinesBySlotAndLeavesOutEmptyOnes) {
    AddConstruction(project, {"A", "", "C"});
    const std::string bytes = FormatConstructionFile(project);
    EXPECT_NE(bytes.find("* A\r\n_ 3 =       3 "), std::string::npos) << bytes;
}

TEST_F(ConstructionWriter, WritesAConstructionWithoutLayers) {
    AddConstruction(project, {});
    project.constructions[1].name = "Empty";
    EXPECT_EQ(FormatConstructionFile(project),
              Lines({"!MATERIALS FILE = 'stdmat.lby'", "", "!CONSTRUCTION 'Empty'", "!TYPE OPAQUE",
                     "!PARTS", "!END", ""}));
}

TEST_F(ConstructionWriter, WritesNoSectionForARemovedConstruction) {
    for (const char* name : {"A", "B", "C"})
        project.constructions[AddConstruction(project, {})].name = name;
    RemoveConstruction(project, 2);
    const std::string bytes = FormatConstructionFile(project);
    EXPECT_EQ(bytes, Lines({"!MATERIALS FILE = 'stdmat.lby'", "", "!CONSTRUCTION 'A'",
                            "!TYPE OPAQUE", "!PARTS", "!END", "", "!CONSTRUCTION 'C'",
                            "!TYPE OPAQUE", "!PARTS", "!END", ""}));
    EXPECT_EQ(project.constructions[3].name, "C") << "numbers stay";
}

TEST_F(ConstructionWriter, WritesEveryCommentBehindTheLineOfItsSection) {
    AddConstruction(project, {});
    project.constructions[1].name = "A";
    AddGlassType(project, "G");
    project.comments.fileHead = {" head", ""};
    project.comments.standardLibrary = {" library"};
    project.comments.constructions.Add(1, " one");
    project.comments.constructions.Add(1, " two");
    project.comments.constructions.Add(2, " of nobody");
    project.comments.glassTypes.Add(1, " glass");
    project.comments.noSection = {" end"};
    constexpr char zeros[] = "0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0";
    EXPECT_EQ(FormatConstructionFile(project), Lines({"* head",
                                                      "*",
                                                      "!MATERIALS FILE = 'stdmat.lby'",
                                                      "* library",
                                                      "",
                                                      "!CONSTRUCTION 'A'",
                                                      "!TYPE OPAQUE",
                                                      "* one",
                                                      "* two",
                                                      "!PARTS",
                                                      "!END",
                                                      "",
                                                      "!WINDOW = 'G'",
                                                      "* glass",
                                                      "!TRANSMISSION =",
                                                      zeros,
                                                      "!ABSORPTION =",
                                                      zeros,
                                                      "!END",
                                                      "",
                                                      "* end"}));
}

TEST_F(ConstructionWriter, WritesGlassValuesWithOneToThreeDecimals) {
    AddGlassType(project, "G");
    AngularValues& values = project.glassTypes[1].transmission;
    values[1] = 0.5F;
    values[2] = 0.523F;
    values[3] = 0.5234F;
    values[4] = 1;
    values[5] = 0.0005F;
    values[6] = -0.25F;
    EXPECT_NE(FormatConstructionFile(project).find(
                  "!TRANSMISSION =\r\n"
                  "0.5, 0.523, 0.523, 1.0, 0.001, -0.25, 0.0, 0.0, 0.0, 0.0, 0.0\r\n"),
              std::string::npos);
}

TEST_F(ConstructionWriter, WritesADiffusionTableOnlyForATypeThatHasOne) {
    AddGlassType(project, "G");
    project.glassTypes[1].diffusion[1] = 0.5F;
    EXPECT_EQ(FormatConstructionFile(project).find("!DIFFUSION"), std::string::npos);
    project.glassTypes[1].hasDiffusion = true;
    EXPECT_NE(FormatConstructionFile(project).find("!DIFFUSION =\r\n0.5, 0.0, "),
              std::string::npos);
}

TEST_F(ConstructionWriter, WritesZeroWithoutASignSoThatWritingTwiceGivesTheSameBytes) {
    Layer& layer = AddLayer("A");
    layer.materialCode = 0;
    layer.thickness = -0.4;
    layer.conductivity = -0.3F;
    layer.absorption = -0.004F;
    project.constructions[1].type = transparentType;
    EXPECT_EQ(PartLine(), "_ 1 =       0      0.000      0      0.00      * A");
    layer.thickness = -0.5;
    EXPECT_EQ(PartLine(), "_ 1 =       0      -0.001      0      0.00      * A");
    AddGlassType(project, "G");
    project.glassTypes[1].transmission[1] = -0.0004F;
    project.glassTypes[1].transmission[2] = -0.0F;
    project.glassTypes[1].transmission[3] = -0.5F;
    EXPECT_NE(FormatConstructionFile(project).find("=\r\n0.0, 0.0, -0.5, 0.0"), std::string::npos);
}

TEST_F(ConstructionWriter, SkipsAGlassTypeWhoseNameWasEmptied) {
    AddGlassType(project, "A");
    AddGlassType(project, "B");
    project.glassTypes[1].name.clear();
    AddGlassType2D(project, "C");
    project.glassTypes2D[1].name.clear();
    const std::string bytes = FormatConstructionFile(project);
    EXPECT_EQ(bytes.find("'A'"), std::string::npos);
    EXPECT_NE(bytes.find("!WINDOW = 'B'"), std::string::npos);
    EXPECT_EQ(bytes.find("2D"), std::string::npos);
}

TEST_F(ConstructionWriter, EndsEveryTwoDimensionalTableWithABrace) {
    AddGlassType2D(project, "H");
    project.glassTypes2D[1].hasDiffusion = true;
    project.comments.glassTypes2D.Add(1, " flat");
    std::string row;
    for (int column = 1; column <= 19; ++column)
        row += column == 1 ? "0.0" : ", 0.0";
    std::string table;
    for (int line = 1; line <= 19; ++line)
        table += row + "\r\n";
    table += " }\r\n";
    EXPECT_EQ(FormatConstructionFile(project),
              "!MATERIALS FILE = 'stdmat.lby'\r\n\r\n!WINDOW 2D = 'H'\r\n* flat\r\n"
              "!TRANSMISSION =\r\n"
                  + table + "!ABSORPTION =\r\n" + table + "!DIFFUSION =\r\n" + table
                  + "!END\r\n\r\n");
}

} // namespace
} // namespace strativo
