#include "files/Findings.h"

#include "edit/GlassTypes.h"
#include "support/TestProject.h"

#include <gmock/gmock.h>
#include <limits>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A project whose standard library holds material 1 and whose user library holds material 2.
class Findings : public testing::Test {
protected:
    Findings() {
        project.standardLibrary[1] = {1, "BRICK", 0.5, 1000, 1000};
        project.standardLibrary[2].name = endOfLibrary;
        project.userLibrary[1] = {2, "HEMP", 0.04, 40, 1600};
        project.userLibrary[2].name = endOfLibrary;
    }

    Layer& AddWall() {
        const int number = AddConstruction(project, {"BRICK"});
        Layer& layer = project.constructions[number].layers.Edit(1);
        layer.density = 1000;
        layer.specificHeat = 1000;
        return layer;
    }

    GlassType& AddGlass(const std::string& name) {
        AddGlassType(project, name);
        return project.glassTypes[project.currentGlassType];
    }

    GlassType2D& AddGlass2D(const std::string& name) {
        AddGlassType2D(project, name);
        return project.glassTypes2D[project.currentGlassType2D];
    }

    std::vector<std::string> Rules() const {
        std::vector<std::string> rules;
        for (const Finding& finding : FindingsOf(project))
            rules.push_back(finding.rule);
        return rules;
    }

    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Finding& finding : FindingsOf(project))
            texts.push_back(finding.text);
        return texts;
    }

    ScriptedPrompts prompts;
    Project project;
};

TEST_F(Findings, NoneInAnEmptyProject) {
    EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(Findings, NoneInASoundProject) {
    AddWall();
    AddGlass("CLEAR").transmission[2] = 1;
    EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(Findings, ZeroThicknessOncePerConstruction) {
    Layer& layer = AddWall();
    layer.thickness = 0;
    const Layer copy = layer;
    project.constructions[1].layers.Edit(2) = copy;
    EXPECT_THAT(Rules(), ElementsAre("zero-thickness"));
}

TEST_F(Findings, ZeroAbsorptionOfTransparentConstructionsOnly) {
    AddWall();
    AddWall();
    project.constructions[2].type = transparentType;
    EXPECT_THAT(Texts(), ElementsAre("Construction 2 \"Construction 2\": "
                                     "a total absorption equal to zero"));
}

TEST_F(Findings, UnlinkedMaterialsAreLookedForInTheirOwnLibrary) {
    AddWall().materialCode = 2;
    AddWall().library = userLibraryNumber;
    Layer& own = AddWall();
    own.library = userLibraryNumber;
    own.materialCode = 2;
    EXPECT_THAT(Texts(), ElementsAre("Construction 1 \"Construction 1\", layer 1: "
                                     "material 2 is not in the standard library",
                                     "Construction 2 \"Construction 2\", layer 1: "
                                     "material 1 is not in the user library"));
}

TEST_F(Findings, TheLargestMaterialNumberCanBeLinked) {
    project.standardLibrary[1].code = 32767;
    AddWall().materialCode = 32767;
    EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(Findings, MaterialsBehindTheEndMarkerAreNotInTheLibrary) {
    project.standardLibrary[3] = {7, "STALE", 1, 1, 1};
    AddWall().materialCode = 7;
    EXPECT_THAT(Rules(), ElementsAre("unlinked-material"));
}

TEST_F(Findings, CavityCodesWithoutANameOfTheirOwn) {
    for (const int code : {-1, -2, -3, -5, -6, -11})
        AddWall().materialCode = static_cast<std::int16_t>(code);
    EXPECT_THAT(Rules(), IsEmpty());
    for (const int code : {-4, -7, -10, -12})
        AddWall().materialCode = static_cast<std::int16_t>(code);
    EXPECT_THAT(Rules(), ElementsAre("unknown-cavity", "unknown-cavity", "unknown-cavity",
                                     "unknown-cavity"));
}

TEST_F(Findings, AMaterialNumberOfZeroIsNeitherUnlinkedNorACavity) {
    AddWall().materialCode = 0;
    EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(Findings, ConstructionsWithoutLayers) {
    AddConstruction(project, {});
    const std::vector<Finding> findings = FindingsOf(project);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].rule, "no-layers");
    EXPECT_EQ(findings[0].construction, 1);
    EXPECT_EQ(findings[0].layer, 0);
    EXPECT_EQ(findings[0].glassType, 0);
    EXPECT_EQ(findings[0].name, "Construction 1");
}

TEST_F(Findings, RemovedConstructionsHaveNone) {
    AddConstruction(project, {});
    project.constructions[1].window.open = false;
    EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(Findings, ConstructionsComeInNumberOrderWithAllOfTheirFindings) {
    AddWall().thickness = 0;
    project.constructions[1].layers.Edit(1).materialCode = 99;
    AddWall().thickness = 0;
    AddGlass("CLEAR").transmission[1] = 2;
    EXPECT_THAT(Rules(), ElementsAre("zero-thickness", "unlinked-material", "zero-thickness",
                                     "glass-value-range", "glass-energy-balance"));
}

TEST_F(Findings, DuplicateGlassNamesFromTheSecondOn) {
    for (const char* name : {"CLEAR", "clear", "CLEAR", "CLEAR"})
        AddGlass(name);
    EXPECT_THAT(Texts(), ElementsAre("Glass type 3 \"CLEAR\": an earlier one has this name too",
                                     "Glass type 4 \"CLEAR\": an earlier one has this name too"));
}

TEST_F(Findings, GlassTypesOfTheTwoKindsAreNumberedAndNamedApart) {
    AddGlass("CLEAR");
    AddGlass2D("CLEAR");
    AddGlass2D("CLEAR");
    EXPECT_THAT(Texts(), ElementsAre("Two-dimensional glass type 2 \"CLEAR\": "
                                     "an earlier one has this name too"));
}

TEST_F(Findings, FreeGlassSlotsHaveNone) {
    AddGlass("CLEAR").transmission[1] = 2;
    project.glassTypes[1].name.clear();
    EXPECT_THAT(Rules(), IsEmpty());
}

TEST_F(Findings, EachGlassValueOutsideItsRange) {
    GlassType& type = AddGlass("G");
    type.transmission[1] = -0.1F;
    type.absorption[2] = 1.25F;
    type.absorption[11] = 1;
    type.transmission[11] = -0.5F;
    EXPECT_THAT(Texts(), ElementsAre("Glass type 1 \"G\": transmission for diffuse light is -0.1",
                                     "Glass type 1 \"G\": transmission at 90 degrees is -0.5",
                                     "Glass type 1 \"G\": absorption at 0 degrees is 1.25",
                                     "Glass type 1 \"G\": transmission and absorption "
                                     "at 0 degrees add up to 1.25"));
}

TEST_F(Findings, DiffusionCountsOnlyWhereThereIsSuchATable) {
    GlassType& type = AddGlass("G");
    type.diffusion[3] = 1.5F;
    EXPECT_THAT(Rules(), IsEmpty());
    type.hasDiffusion = true;
    EXPECT_THAT(Texts(), ElementsAre("Glass type 1 \"G\": diffusion at 10 degrees is 1.5"));
}

TEST_F(Findings, EnergyBalanceOncePerGlassType) {
    GlassType& type = AddGlass("G");
    for (int value = 3; value <= 11; ++value) {
        type.transmission[value] = 0.6F;
        type.absorption[value] = 0.41F;
    }
    EXPECT_THAT(Texts(), ElementsAre("Glass type 1 \"G\": transmission and absorption "
                                     "at 10 degrees add up to 1.01"));
}

TEST_F(Findings, EnergyBalanceTellsTheSumOfTheDecimals) {
    constexpr float largest = std::numeric_limits<float>::max();
    AddGlass("G").transmission[2] = 0.5F;
    project.glassTypes[1].absorption[2] = 0.501F;
    AddGlass("H").transmission[2] = largest;
    project.glassTypes[2].absorption[2] = largest;
    const std::vector<std::string> texts = Texts();
    EXPECT_THAT(texts, testing::Contains("Glass type 1 \"G\": transmission and absorption at 0 "
                                         "degrees add up to 1.001"));
    EXPECT_THAT(texts, testing::Contains(testing::HasSubstr("add up to 680564")));
}

TEST_F(Findings, DecimalsThatAddUpToOneKeepTheEnergyBalance) {
    GlassType& type = AddGlass("G");
    for (int thousandths = 0; thousandths <= 1000; ++thousandths) {
        type.transmission[2] = static_cast<float>(thousandths / 1000.0);
        type.absorption[2] = static_cast<float>((1000 - thousandths) / 1000.0);
        EXPECT_THAT(Rules(), IsEmpty()) << thousandths;
    }
}

TEST_F(Findings, TwoDimensionalTypesAreCheckedByRowAndColumn) {
    GlassType2D& type = AddGlass2D("T");
    type.transmission[4][19] = 0.75F;
    type.absorption[4][19] = 0.5F;
    type.absorption[19][1] = 1.5F;
    EXPECT_THAT(Texts(),
                ElementsAre("Two-dimensional glass type 1 \"T\": absorption in row 19, column 1 "
                            "is 1.5",
                            "Two-dimensional glass type 1 \"T\": transmission and absorption "
                            "in row 4, column 19 add up to 1.25"));
    EXPECT_EQ(FindingsOf(project)[0].glassType, 1);
    EXPECT_EQ(FindingsOf(project)[0].construction, 0);
}

TEST_F(Findings, TwoDimensionalDiffusionIsCheckedWhereThereIsSuchATable) {
    GlassType2D& type = AddGlass2D("T");
    type.diffusion[2][3] = -0.25F;
    EXPECT_THAT(Rules(), IsEmpty());
    type.hasDiffusion = true;
    EXPECT_THAT(Texts(), ElementsAre("Two-dimensional glass type 1 \"T\": diffusion in row 2, "
                                     "column 3 is -0.25"));
}

TEST_F(Findings, AnEmptySlotBetweenLayersIsNoLayer) {
    const Layer brick = AddWall();
    LayerSlots& layers = project.constructions[1].layers;
    layers.Edit(2).materialCode = 99;
    layers.Edit(3) = brick;
    EXPECT_THAT(Rules(), IsEmpty());
}

} // namespace
} // namespace strativo
