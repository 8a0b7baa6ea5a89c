#include "calc/Relink.h"

#include "calc/CavityTypes.h"
#include "calc/LayerList.h"
#include "edit/ConstructionSlots.h"
#include "support/TestProject.h"
#include "text/RuntimeError.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

class RelinkLayersTest : public testing::Test {
protected:
    RelinkLayersTest() {
        project.standardLibrary[1] = {12, "FACE BRICK", 0.84, 1700, 800};
        project.standardLibrary[2] = {20, "PLASTER", 0.5, 1300, 1000};
        AppendCavityEntries(project.standardLibrary, 3);
        project.userLibrary[1] = {12, "MY BRICK", 0.7, 1500, 900};
        project.userLibrary[2].name = endOfLibrary;
    }

    /// A new construction of one layer as a file gives it; returns its number.
    int AddLayerOf(int code, int library = standardLibraryNumber, float conductivity = 0) {
        const int number = AddConstruction(project, {"1"});
        Layer& layer = project.constructions[number].layers.Edit(1);
        layer.materialCode = static_cast<std::int16_t>(code);
        layer.library = static_cast<std::int16_t>(library);
        layer.conductivity = conductivity;
        return number;
    }
    const Layer& LayerOf(int number) const { return project.constructions[number].layers[1]; }

    ScriptedPrompts prompts;
    Project project;
};

TEST_F(RelinkLayersTest, CopiesTheMaterialOfTheStandardLibrary) {
    const int number = AddLayerOf(12);
    RelinkLayers(project);
    const Layer& layer = LayerOf(number);
    EXPECT_EQ(layer.name, "FACE BRICK");
    EXPECT_EQ(layer.conductivity, 0.84F);
    EXPECT_EQ(layer.density, 1700);
    EXPECT_EQ(layer.specificHeat, 800);
    EXPECT_EQ(layer.thickness, 100);
}

TEST_F(RelinkLayersTest, LooksInTheUserLibraryForUserMaterials) {
    const int number = AddLayerOf(12, userLibraryNumber);
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number).name, "MY BRICK");
}

TEST_F(RelinkLayersTest, TakesTheLastOfDuplicateNumbers) {
    project.standardLibrary[2].code = 12;
    const int number = AddLayerOf(12);
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number).name, "PLASTER");
}

TEST_F(RelinkLayersTest, DoesNotLookBehindTheEndMarker) {
    project.standardLibrary[1].name = endOfLibrary;
    const int number = AddLayerOf(20);
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number).name, "1");
}

TEST_F(RelinkLayersTest, LeavesALayerAsItWasWhenItsMaterialIsNotFound) {
    const int number = AddLayerOf(77, standardLibraryNumber, 0.3F);
    const Layer before = LayerOf(number);
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number), before);
}

TEST_F(RelinkLayersTest, FindsOnlyCodesThatAreWholeSixteenBitNumbers) {
    project.standardLibrary[1].code = 12.5;
    project.standardLibrary[2].code = 40000;
    const int number = AddLayerOf(12);
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number).name, "1");
}

TEST_F(RelinkLayersTest, NamesCavitiesInTheSpellingOfLayers) {
    const int number = AddLayerOf(-2, standardLibraryNumber, -2);
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number).name, "CAVITY type 2 Low-E");
    EXPECT_EQ(LayerOf(number).conductivity, -2);
    EXPECT_EQ(LayerOf(number).thickness, 100);
    EXPECT_EQ(project.standardLibrary[4].name, "CAVITY Type 2 Low-E");
}

TEST_F(RelinkLayersTest, NamesUnknownCodesAndShowsThemWithoutResistance) {
    const int number = AddLayerOf(-4, standardLibraryNumber, -4);
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number).name, "Unknown type -4");
    const LayerListView view = ViewLayerList(project.constructions[number]);
    EXPECT_EQ(view.lines[0].substr(39, 6), "  n/a ") << "yet the U-value counts 0.11";
    EXPECT_EQ(view.result, "3.45");
}

TEST_F(RelinkLayersTest, LetsAResistanceCavityContributeItsThicknessField) {
    const int number = AddLayerOf(-3, standardLibraryNumber, -3);
    project.constructions[number].layers.Edit(1).thickness = 0.25;
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number).name, "CAVITY Tyep 3 width = resistance");
    EXPECT_EQ(ViewLayerList(project.constructions[number]).result, "2.33");
}

TEST_F(RelinkLayersTest, LeavesCodeZeroAlone) {
    const int number = AddLayerOf(0, standardLibraryNumber, 0.3F);
    const Layer before = LayerOf(number);
    RelinkLayers(project);
    EXPECT_EQ(LayerOf(number), before);
}

TEST_F(RelinkLayersTest, MakesLayerOneCurrentEvenWithoutLayers) {
    const int empty = AddConstruction(project, {});
    const int other = AddConstruction(project, {"A", "B"});
    project.constructions[other].currentLayer = 2;
    RelinkLayers(project);
    EXPECT_EQ(project.constructions[empty].currentLayer, 1);
    EXPECT_EQ(project.constructions[other].currentLayer, 1);
}

TEST_F(RelinkLayersTest, SkipsRemovedConstructionsAndEndsAtTheLastOne) {
    const int first = AddLayerOf(12);
    const int removed = AddLayerOf(12);
    const int last = AddLayerOf(12);
    RemoveConstruction(project, removed);
    ActivateConstruction(project, first);
    RelinkLayers(project);
    EXPECT_EQ(project.currentConstruction, last);
    EXPECT_EQ(LayerOf(removed).name, "1");
}

TEST_F(RelinkLayersTest, IsErrorSixForAConductivityBeyondA32BitFloat) {
    project.standardLibrary[1].conductivity = 1e300;
    const int number = AddLayerOf(12);
    EXPECT_THROW(RelinkLayers(project), RuntimeError);
    EXPECT_EQ(LayerOf(number).name, "1");
}

} // namespace
} // namespace strativo
