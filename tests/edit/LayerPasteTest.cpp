#include "edit/EditTest.h"
#include "edit/LayerClipboard.h"

namespace strativo {
namespace {

using LayerPaste = EditTest;

TEST_F(LayerPaste, AppendsCopiesBehindTheLastLayer) {
    Add("ABCDE");
    Mark(project, 1, {2, 4}, 4);
    CopyLayers(project, prompts);
    Click(5);
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "ABCDEBD");
    EXPECT_EQ(CurrentLayer(), 7);
    EXPECT_EQ(Marks(), (Layers{6, 7}));
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(Names(), "ABCDEBBDD");
    EXPECT_EQ(CurrentLayer(), 7);
    EXPECT_EQ(Marks(), (Layers{7, 8}));
}

TEST_F(LayerPaste, InsertsAfterTheCurrentLayer) {
    Clip("XY");
    Add("ABC");
    Click(2);
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "ABXYC");
    EXPECT_EQ(CurrentLayer(), 4);
    EXPECT_EQ(Marks(), (Layers{3, 4}));
    EXPECT_TRUE(project.changed);
}

TEST_F(LayerPaste, InsertsAtTheTopWithoutCurrentLayer) {
    Clip("XY");
    Add("AB");
    Mark(project, 1, {}, 0);
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "XYAB");
    EXPECT_EQ(CurrentLayer(), 2);
}

TEST_F(LayerPaste, FillsAnEmptyConstruction) {
    for (const int current : {0, 1}) {
        Clip("XY");
        Add("");
        Current().currentLayer = static_cast<std::int16_t>(current);
        PasteLayers(project, prompts);
        EXPECT_EQ(Names(), "XY");
        EXPECT_EQ(CurrentLayer(), 2);
    }
}

TEST_F(LayerPaste, KeepsEveryFieldOfEntryAndLayers) {
    Add("AB");
    Layer layer = Current().layers[2];
    layer.absorption = 0.4F;
    layer.thickness = 77;
    Current().layers.Edit(2) = layer;
    Clip("X");
    project.clipboard[1].density = 5;
    Click(1);
    PasteLayers(project, prompts);
    EXPECT_EQ(Current().layers[3], layer);
    EXPECT_EQ(Current().layers[2].density, 5);
}

TEST_F(LayerPaste, LeavesTheClipboardForMore) {
    Clip("X");
    Add("");
    PasteLayers(project, prompts);
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "XX");
    EXPECT_EQ(ClipNames(), "X");
}

TEST_F(LayerPaste, SkipsEmptyEntriesInBetween) {
    Clip("X.Z");
    Add("A");
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "AXZ");
    EXPECT_EQ(project.said, "");
}

TEST_F(LayerPaste, DropsTheLastEntriesThatDoNotFitWithoutABeep) {
    Clip("XYZ");
    Add("ABCDEFGHIJKLMN");
    Click(14);
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "ABCDEFGHIJKLMNX");
    EXPECT_EQ(project.said, "2 layers not inserted: a construction has at most 15");
    EXPECT_EQ(CurrentLayer(), 15);
    EXPECT_EQ(prompts.Count("Beep"), 0);
    EXPECT_TRUE(project.changed);
}

TEST_F(LayerPaste, BeforeDropsTheFirstEntriesThatDoNotFitWithoutABeep) {
    Clip("XYZ");
    Add("ABCDEFGHIJKLMN");
    Click(2);
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(Names(), "AZBCDEFGHIJKLMN");
    EXPECT_EQ(project.said, "2 layers not inserted: a construction has at most 15");
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_EQ(Marks(), Layers{2});
    EXPECT_EQ(prompts.Count("Beep"), 0);
}

TEST_F(LayerPaste, BeepsForAFullConstructionAndChangesNothing) {
    Clip("X");
    Add("ABCDEFGHIJKLMNO");
    Click(3);
    PasteLayers(project, prompts);
    EXPECT_EQ(project.said, "1 layer not inserted: a construction has at most 15");
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(prompts.calls, (std::vector<std::string>{"Beep", "Beep"}));
    EXPECT_EQ(Names(), "ABCDEFGHIJKLMNO");
    EXPECT_EQ(CurrentLayer(), 3);
    EXPECT_EQ(Marks(), Layers{3});
    EXPECT_FALSE(project.changed);
}

TEST_F(LayerPaste, BeforeInsertsInClipboardOrderAndKeepsTheCurrentNumber) {
    Clip("XYZ");
    Add("AB");
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(Names(), "XYZAB");
    EXPECT_EQ(CurrentLayer(), 1);
    EXPECT_EQ(Marks(), (Layers{1, 2, 3}));
}

TEST_F(LayerPaste, BeforeWithoutCurrentLayerTakesTheFirst) {
    Clip("X");
    Add("AB");
    Mark(project, 1, {}, 0);
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(Names(), "XAB");
    EXPECT_EQ(CurrentLayer(), 1);
}

TEST_F(LayerPaste, BeforeFillsAnEmptyConstruction) {
    Clip("XY");
    Add("");
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(Names(), "XY");
    EXPECT_EQ(CurrentLayer(), 1);
}

TEST_F(LayerPaste, OfSingleMaterialsBeforeComesOutReversed) {
    Add("");
    for (const char* name : {"A", "B", "C"}) {
        Clip(name);
        PasteLayersBefore(project, prompts);
    }
    EXPECT_EQ(Names(), "CBA");
}

TEST_F(LayerPaste, OfAnEmptyClipboardInsertsNothingAndKeepsMarksAndCurrentLayer) {
    Add("ABC");
    for (void (*paste)(Project&, Prompts&) : {PasteLayers, PasteLayersBefore}) {
        Mark(project, 1, {1, 3}, 2);
        paste(project, prompts);
        EXPECT_EQ(Names(), "ABC");
        EXPECT_EQ(CurrentLayer(), 2);
        EXPECT_EQ(Marks(), (Layers{1, 3}));
        EXPECT_TRUE(project.changed);
        Mark(project, 1, {}, 0);
        paste(project, prompts);
        EXPECT_EQ(CurrentLayer(), 0);
    }
    Add("");
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(CurrentLayer(), 0);
}

TEST_F(LayerPaste, OfAUserMaterialMakesTheUserLibraryNeeded) {
    Clip("X");
    Add("A");
    PasteLayers(project, prompts);
    EXPECT_FALSE(project.userLibraryNeeded);
    project.clipboard[1].library = userLibraryNumber;
    PasteLayersBefore(project, prompts);
    EXPECT_TRUE(project.userLibraryNeeded);
}

TEST_F(LayerPaste, OfADroppedUserEntryNeedsNoUserLibrary) {
    Clip("XY");
    project.clipboard[2].library = userLibraryNumber;
    Add("ABCDEFGHIJKLMN");
    PasteLayers(project, prompts);
    EXPECT_FALSE(project.userLibraryNeeded);
}

TEST_F(LayerPaste, ClosesUpEmptySlotsFirst) {
    Clip("X");
    Add("ABCD");
    Current().layers.Edit(2) = Layer();
    Current().currentLayer = 4;
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "ACDX");
    EXPECT_EQ(Current().layers.HighestUsed(), 4);
    EXPECT_EQ(CurrentLayer(), 4);
}

TEST_F(LayerPaste, InsertsAtEveryPlaceOfEveryLength) {
    for (int length = 1; length <= 14; ++length) {
        const std::string letters = std::string("ABCDEFGHIJKLMN").substr(0, std::size_t(length));
        for (int at = 1; at <= length; ++at) {
            Clip("X");
            Add(letters);
            Click(at);
            PasteLayersBefore(project, prompts);
            std::string expected = letters;
            expected.insert(std::size_t(at) - 1, "X");
            EXPECT_EQ(Names(), expected);
        }
    }
}

} // namespace
} // namespace strativo
