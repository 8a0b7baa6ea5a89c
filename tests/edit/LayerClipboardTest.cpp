#include "edit/LayerClipboard.h"

#include "edit/EditTest.h"
#include "project/NewProject.h"

namespace strativo {
namespace {

using LayerClipboardTest = EditTest;

TEST_F(LayerClipboardTest, CopiesMarkedLayersInListOrder) {
    Add("ABCDE");
    Mark(project, 1, {4, 2}, 4);
    CopyLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "BD");
    EXPECT_EQ(Names(), "ABCDE");
    EXPECT_FALSE(project.changed);
}

TEST_F(LayerClipboardTest, CopiesEveryFieldButTheMark) {
    Add("A");
    Layer layer;
    layer.name = "A";
    layer.materialCode = 12;
    layer.library = userLibraryNumber;
    layer.conductivity = 0.84F;
    layer.density = 1700;
    layer.specificHeat = 800;
    layer.thickness = 105;
    layer.absorption = 0.3F;
    Current().layers.Edit(1) = layer;
    Click(1);
    CopyLayers(project, prompts);
    EXPECT_EQ(project.clipboard[1], layer);
}

TEST_F(LayerClipboardTest, ClearsEntriesBehindTheCopiedOnes) {
    Clip("VWXYZ");
    Add("AB");
    Click(2);
    CopyLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "B");
}

TEST_F(LayerClipboardTest, CopyWithoutCurrentLayerKeepsTheClipboard) {
    Clip("X");
    Add("AB");
    Mark(project, 1, {1}, 0);
    CopyLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "X");
}

TEST_F(LayerClipboardTest, CopyWithNothingMarkedKeepsTheClipboard) {
    Clip("XY");
    Add("AB");
    Mark(project, 1, {}, 1);
    CopyLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "XY");
}

TEST_F(LayerClipboardTest, CutRemovesWhatItCopied) {
    Add("ABCD");
    Mark(project, 1, {2, 3}, 3);
    CutLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "BC");
    EXPECT_EQ(Names(), "AD");
    EXPECT_TRUE(project.changed);
}

TEST_F(LayerClipboardTest, CutWithoutCurrentLayerDoesNothingAtAll) {
    Clip("X");
    Add("AB");
    Mark(project, 1, {1}, 0);
    CutLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "X");
    EXPECT_EQ(Names(), "AB");
    EXPECT_FALSE(project.changed);
}

TEST_F(LayerClipboardTest, CutWithNothingMarkedRemovesNothingButCountsAsChange) {
    Clip("X");
    Add("AB");
    Mark(project, 1, {}, 2);
    CutLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "X");
    EXPECT_EQ(Names(), "AB");
    EXPECT_TRUE(project.changed);
}

TEST_F(LayerClipboardTest, CutNeverCopiesFromTheMaterialList) {
    project.standardLibrary[1] = {12, "BRICK", 0.84, 1700, 800};
    project.standardLibrary[2].name = endOfLibrary;
    project.selectedMaterial = 1;
    Add("AB");
    Click(1);
    project.dialogActive = true;
    CutLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "A");
    EXPECT_EQ(Names(), "B");
}

TEST_F(LayerClipboardTest, DeleteClosesUpAndGoesBackToTheLine) {
    Add("ABCDE");
    Mark(project, 1, {1, 3}, 3);
    DeleteLayers(project, prompts);
    EXPECT_EQ(Names(), "BDE");
    EXPECT_EQ(CurrentLayer(), 3);
    EXPECT_EQ(Marks(), Layers{3});
    EXPECT_TRUE(project.changed);
    EXPECT_EQ(ClipNames(), "");
    EXPECT_EQ(Current().layers[4], Layer());
}

TEST_F(LayerClipboardTest, DeleteInTheMiddleMarksTheLayerThatMovedUp) {
    Add("ABCDE");
    Click(3);
    DeleteLayers(project, prompts);
    EXPECT_EQ(Names(), "ABDE");
    EXPECT_EQ(CurrentLayer(), 3);
    EXPECT_EQ(Marks(), Layers{3});
}

TEST_F(LayerClipboardTest, DeleteOfTheLastLineStaysWithinTheLines) {
    Add("ABDE");
    Click(4);
    DeleteLayers(project, prompts);
    EXPECT_EQ(Names(), "ABD");
    EXPECT_EQ(CurrentLayer(), 3);
    Mark(project, 1, {1, 3}, 3);
    DeleteLayers(project, prompts);
    EXPECT_EQ(Names(), "B");
    EXPECT_EQ(CurrentLayer(), 1);
    EXPECT_EQ(Marks(), Layers{1});
}

TEST_F(LayerClipboardTest, DeleteAgainAndAgainEmptiesTheConstruction) {
    Add("ABC");
    Click(2);
    for (const char* left : {"AC", "A", ""}) {
        DeleteLayers(project, prompts);
        EXPECT_EQ(Names(), left);
    }
    EXPECT_EQ(CurrentLayer(), 0);
    EXPECT_EQ(Marks(), Layers{});
    DeleteLayers(project, prompts);
    EXPECT_EQ(Names(), "");
}

TEST_F(LayerClipboardTest, DeleteWithNothingMarkedStillCountsAsChange) {
    Add("AB");
    Mark(project, 1, {}, 2);
    DeleteLayers(project, prompts);
    EXPECT_EQ(Names(), "AB");
    EXPECT_TRUE(project.changed);
}

TEST_F(LayerClipboardTest, DeleteAndCutWithNothingMarkedMarkNothingSoThatASecondRemovesNothing) {
    Add("ABC");
    Mark(project, 1, {}, 2);
    for (void (*remove)(Project&, Prompts&) : {DeleteLayers, CutLayers}) {
        remove(project, prompts);
        EXPECT_EQ(Marks(), Layers{});
        EXPECT_EQ(CurrentLayer(), 2);
        remove(project, prompts);
        EXPECT_EQ(Names(), "ABC");
    }
}

TEST_F(LayerClipboardTest, DeleteWithoutCurrentLayerRemovesNothing) {
    Add("AB");
    Mark(project, 1, {1}, 0);
    DeleteLayers(project, prompts);
    EXPECT_EQ(Names(), "AB");
    EXPECT_EQ(CurrentLayer(), 0);
    EXPECT_TRUE(project.changed);
}

TEST_F(LayerClipboardTest, DeleteInAnEmptyConstructionThatWasReadKeepsItsCurrentLayer) {
    Add("");
    Current().currentLayer = 1;
    DeleteLayers(project, prompts);
    EXPECT_EQ(CurrentLayer(), 1);
}

TEST_F(LayerClipboardTest, ClosesUpEmptySlotsBeforeEditing) {
    Add("ABCD");
    Current().layers.Edit(2) = Layer();
    Mark(project, 1, {4}, 2);
    DeleteLayers(project, prompts);
    EXPECT_EQ(Names(), "AC");
    EXPECT_EQ(Current().layers[1].name, "A");
    EXPECT_EQ(Current().layers[2].name, "C");
}

TEST_F(LayerClipboardTest, CopyLeavesEmptySlotsWhereTheyAre) {
    Add("ABCD");
    Current().layers.Edit(2) = Layer();
    Mark(project, 1, {3, 4}, 2);
    CopyLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "CD");
    EXPECT_EQ(Current().layers[4].name, "D");
}

TEST_F(LayerClipboardTest, CutThenPasteInTheMiddleIsNoIdentityButPasteBeforeRestores) {
    Add("ABCD");
    Click(2);
    CutLayers(project, prompts);
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "ACBD");
    Click(3);
    CutLayers(project, prompts);
    EXPECT_EQ(Names(), "ACD");
    Click(2);
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(Names(), "ABCD");
}

TEST_F(LayerClipboardTest, SurvivesANewProject) {
    Add("AB");
    Click(1);
    CopyLayers(project, prompts);
    ASSERT_TRUE(NewProject(project, prompts));
    EXPECT_EQ(ClipNames(), "A");
}

TEST_F(LayerClipboardTest, IsEmptiedWhole) {
    Clip("AB");
    ClearClipboard(project.clipboard);
    EXPECT_EQ(project.clipboard, LayerClipboard());
}

TEST_F(LayerClipboardTest, CountsMarkedLayersUpToALayer) {
    Add("ABCD");
    Mark(project, 1, {1, 3, 4}, 1);
    EXPECT_EQ(MarkedLayersUpTo(Current(), 0), 0);
    EXPECT_EQ(MarkedLayersUpTo(Current(), 3), 2);
    EXPECT_EQ(MarkedLayersUpTo(Current(), 4), 3);
}

struct OperationRow {
    const char* name;
    void (*operation)(Project&, Prompts&);
};

class WithoutConstruction : public EditTest, public testing::WithParamInterface<OperationRow> {};

TEST_P(WithoutConstruction, BeepsAndDoesNothing) {
    Clip("X");
    project.clipboard[1].library = userLibraryNumber;
    GetParam().operation(project, prompts);
    EXPECT_EQ(prompts.calls, std::vector<std::string>{"Beep"});
    EXPECT_FALSE(project.changed);
    EXPECT_FALSE(project.userLibraryNeeded);
    EXPECT_EQ(ClipNames(), "X");
    EXPECT_EQ(LayerNames(project, 1), "");
}

INSTANTIATE_TEST_SUITE_P(Operations, WithoutConstruction,
                         testing::Values(OperationRow{"Copy", CopyLayers},
                                         OperationRow{"Cut", CutLayers},
                                         OperationRow{"Delete", DeleteLayers},
                                         OperationRow{"Paste", PasteLayers},
                                         OperationRow{"PasteBefore", PasteLayersBefore}),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace strativo
