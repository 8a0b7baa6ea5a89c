#include "edit/LayerDrag.h"

#include "edit/ConstructionSlots.h"
#include "edit/EditTest.h"

namespace strativo {
namespace {

struct DropRow {
    const char* name;
    std::string layers;
    Layers marked;
    int pressedLine;
    int row; ///< before the cut
    std::string result;
    int current;
};

class MoveWithinAList : public EditTest, public testing::WithParamInterface<DropRow> {};

TEST_P(MoveWithinAList, PutsTheLayersBeforeTheDropRow) {
    const DropRow& drop = GetParam();
    Add(drop.layers);
    Mark(project, 1, drop.marked, drop.marked.front());
    ASSERT_TRUE(StartLayerDrag(project, 1, drop.pressedLine, false));
    DropLayers(project, 1, drop.row, prompts);
    EXPECT_EQ(Names(), drop.result);
    EXPECT_EQ(CurrentLayer(), drop.current);
    EXPECT_EQ(Marks(), Layers{});
    EXPECT_EQ(Current().layers.HighestUsed(), static_cast<int>(drop.layers.size()));
}

INSTANTIATE_TEST_SUITE_P(
    Drops, MoveWithinAList,
    testing::Values(DropRow{"FirstOnThird", "ABC", {1}, 0, 2, "BAC", 2},
                    DropRow{"ThirdOnFirst", "ABC", {3}, 2, 0, "CAB", 1},
                    DropRow{"FirstJustBelow", "ABC", {1}, 0, 3, "BCA", 3},
                    DropRow{"FirstFarBelow", "ABC", {1}, 0, 8, "BCA", 3},
                    DropRow{"FirstTwoOnFourth", "ABCD", {1, 2}, 0, 3, "CABD", 2},
                    DropRow{"OnItself", "ABC", {2}, 1, 1, "ABC", 2},
                    DropRow{"LastOnItself", "ABC", {3}, 2, 2, "ABC", 3},
                    DropRow{"OnNextIsNoMove", "ABC", {1}, 0, 1, "ABC", 1},
                    DropRow{"ApartOnOneBetween", "ABCDE", {1, 5}, 4, 2, "BAECD", 2},
                    DropRow{"AllOfThem", "ABC", {1, 2, 3}, 1, 1, "ABC", 3},
                    DropRow{"TheOnlyOne", "A", {1}, 0, 0, "A", 1},
                    DropRow{"AboveTheList", "ABC", {3}, 2, -1, "CAB", 1},
                    DropRow{"InAFullList", "ABCDEFGHIJKLMNO", {1}, 0, 15, "BCDEFGHIJKLMNOA", 15}),
    [](const auto& row) { return row.param.name; });

class LayerDragTest : public EditTest {
protected:
    void Drag(int source, int line, bool copy) {
        ASSERT_TRUE(StartLayerDrag(project, source, line, copy));
        prompts.calls.clear();
    }
};

TEST_F(LayerDragTest, MovesToAnotherConstructionAndActivatesIt) {
    Add("ABC");
    Add("XYZ");
    Mark(project, 1, {1}, 1);
    Drag(1, 0, false);
    DropLayers(project, 2, 1, prompts);
    EXPECT_EQ(LayerNames(project, 1), "BC");
    EXPECT_EQ(LayerNames(project, 2), "XAYZ");
    EXPECT_EQ(project.currentConstruction, 2);
    EXPECT_EQ(LatestActiveConstruction(project), 2);
    EXPECT_EQ(project.windowToActivate, 2);
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_TRUE(project.changed);
    EXPECT_EQ(ClipNames(), "A");
}

TEST_F(LayerDragTest, DoesNotReduceTheRowForAnotherConstruction) {
    Add("ABC");
    Add("XYZ");
    Mark(project, 1, {1, 2}, 1);
    Drag(1, 0, false);
    DropLayers(project, 2, 2, prompts);
    EXPECT_EQ(LayerNames(project, 2), "XYABZ");
}

TEST_F(LayerDragTest, AppendsBelowTheLastLineWithTheLastInsertedCurrent) {
    Add("AB");
    Add("XY");
    Mark(project, 1, {1, 2}, 1);
    Drag(1, 0, true);
    DropLayers(project, 2, 5, prompts);
    EXPECT_EQ(LayerNames(project, 2), "XYAB");
    EXPECT_EQ(CurrentLayer(), 4);
    EXPECT_EQ(Marks(), Layers{});
}

TEST_F(LayerDragTest, WithCtrlLeavesTheSourceUnchanged) {
    Add("ABC");
    Add("");
    Mark(project, 1, {2, 3}, 2);
    Drag(1, 1, true);
    DropLayers(project, 2, 0, prompts);
    EXPECT_EQ(LayerNames(project, 1), "ABC");
    EXPECT_EQ(LayerNames(project, 2), "BC");
}

TEST_F(LayerDragTest, WithCtrlCopiesWithinAListWithoutReduction) {
    Add("ABC");
    Mark(project, 1, {1}, 1);
    Drag(1, 0, true);
    DropLayers(project, 1, 2, prompts);
    EXPECT_EQ(Names(), "ABAC");
    EXPECT_EQ(CurrentLayer(), 3);
    EXPECT_EQ(Marks(), Layers{});
}

TEST_F(LayerDragTest, RefusesAMoveThatDoesNotFitSoThatNoLayerIsLost) {
    Add("AB");
    Add("ABCDEFGHIJKLMN");
    Mark(project, 1, {1, 2}, 1);
    Drag(1, 0, false);
    DropLayers(project, 2, 0, prompts);
    EXPECT_EQ(prompts.calls, std::vector<std::string>{"Beep"});
    EXPECT_EQ(project.said, "Not moved: 16 layers would be more than the 15 of a construction");
    EXPECT_EQ(LayerNames(project, 1), "AB");
    EXPECT_EQ(LayerNames(project, 2), "ABCDEFGHIJKLMN");
    EXPECT_EQ(ClipNames(), "AB");
    EXPECT_EQ(project.currentConstruction, 1);
    EXPECT_FALSE(project.changed);
}

TEST_F(LayerDragTest, TakesAMoveThatJustFits) {
    Add("A");
    Add("ABCDEFGHIJKLMN");
    Drag(1, 0, false);
    DropLayers(project, 2, 0, prompts);
    EXPECT_EQ(LayerNames(project, 1), "");
    EXPECT_EQ(project.constructions[1].currentLayer, 0);
    EXPECT_EQ(LayerNames(project, 2), "AABCDEFGHIJKLMN");
}

TEST_F(LayerDragTest, BeepsWhenACopyFindsAFullList) {
    Add("ABCDEFGHIJKLMNO");
    Drag(1, 0, true);
    DropLayers(project, 1, 3, prompts);
    EXPECT_EQ(prompts.Count("Beep"), 1);
    EXPECT_EQ(Names(), "ABCDEFGHIJKLMNO");
    EXPECT_EQ(Marks(), Layers{});
}

TEST_F(LayerDragTest, HasThePressedLineAlwaysAmongTheDragged) {
    Add("ABC");
    Mark(project, 1, {1}, 1);
    Drag(1, 2, true);
    EXPECT_EQ(Marks(), (Layers{1, 3}));
    EXPECT_EQ(CurrentLayer(), 3);
    EXPECT_EQ(project.drag.source, 1);
    EXPECT_TRUE(project.drag.copy);
}

TEST_F(LayerDragTest, ClosesUpEmptySlotsOnlyAtTheDrop) {
    Add("ABCD");
    Current().layers.Edit(2) = Layer();
    Mark(project, 1, {}, 1);
    Drag(1, 2, false);
    EXPECT_EQ(Current().layers[4].name, "D");
    EXPECT_EQ(Marks(), Layers{4});
    DropLayers(project, 1, 0, prompts);
    EXPECT_EQ(Names(), "DAC");
    EXPECT_EQ(Current().layers[3].name, "C");
}

TEST_F(LayerDragTest, DoesNotStartWhereThereIsNoLine) {
    Add("AB");
    EXPECT_FALSE(StartLayerDrag(project, 1, 2, false));
    EXPECT_FALSE(StartLayerDrag(project, 1, -1, false));
    EXPECT_EQ(Marks(), Layers{});
    EXPECT_EQ(project.drag.source, 0);
}

TEST_F(LayerDragTest, DoesNothingWhenAConstructionIsGoneAtTheDrop) {
    Add("AB");
    Add("XY");
    Drag(1, 0, false);
    DropLayers(project, 3, 0, prompts);
    EXPECT_EQ(LayerNames(project, 1), "AB");
    RemoveConstruction(project, 1);
    prompts.calls.clear();
    DropLayers(project, 2, 0, prompts);
    EXPECT_EQ(LayerNames(project, 2), "XY");
    EXPECT_TRUE(prompts.calls.empty());
}

TEST_F(LayerDragTest, DoesNothingWithoutMarkedLayers) {
    Clip("X");
    Add("AB");
    Add("CD");
    Drag(1, 0, false);
    Mark(project, 1, {}, 1);
    DropLayers(project, 2, 0, prompts);
    EXPECT_EQ(LayerNames(project, 2), "CD");
    EXPECT_EQ(project.currentConstruction, 2);
    EXPECT_TRUE(prompts.calls.empty());
}

using MaterialDrop = EditTest;

TEST_F(MaterialDrop, GoesToTheListItFallsOn) {
    Add("AB");
    Add("XY");
    ActivateConstruction(project, 1);
    Clip("M");
    DropMaterial(project, 2, 1, prompts);
    EXPECT_EQ(LayerNames(project, 1), "AB");
    EXPECT_EQ(LayerNames(project, 2), "XMY");
    EXPECT_EQ(project.currentConstruction, 2);
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_EQ(Marks(), Layers{});
    EXPECT_EQ(project.windowToActivate, 2);
}

TEST_F(MaterialDrop, AppendsBelowTheLastLine) {
    Add("AB");
    Clip("M");
    DropMaterial(project, 1, 2, prompts);
    EXPECT_EQ(Names(), "ABM");
    EXPECT_EQ(CurrentLayer(), 3);
}

TEST_F(MaterialDrop, FillsAnEmptyList) {
    Add("");
    Clip("M");
    DropMaterial(project, 1, 0, prompts);
    EXPECT_EQ(Names(), "M");
    EXPECT_EQ(CurrentLayer(), 1);
}

TEST_F(MaterialDrop, CarriesTheOldClipboardWhenNothingWasSelected) {
    Add("A");
    Clip("XY");
    DropMaterial(project, 1, 0, prompts);
    EXPECT_EQ(Names(), "XYA");
}

TEST_F(MaterialDrop, IgnoresAWindowThatIsNoConstruction) {
    Clip("M");
    DropMaterial(project, 1, 0, prompts);
    EXPECT_EQ(LayerNames(project, 1), "");
    EXPECT_TRUE(prompts.calls.empty());
}

TEST(VisibleRow, IsTheRowUnderThePointerWithinTheVisibleOnes) {
    EXPECT_EQ(VisibleRow(0, 240, visibleLayerRows), 0);
    EXPECT_EQ(VisibleRow(239.9, 240, visibleLayerRows), 0);
    EXPECT_EQ(VisibleRow(240, 240, visibleLayerRows), 1);
    EXPECT_EQ(VisibleRow(2159, 240, visibleLayerRows), 8);
    EXPECT_EQ(VisibleRow(2189, 240, visibleLayerRows), 8);
    EXPECT_EQ(VisibleRow(1e12, 240, visibleLayerRows), 8);
    EXPECT_EQ(VisibleRow(-500, 240, visibleLayerRows), 0);
    EXPECT_EQ(VisibleRow(1000, 990.0 / 4, visibleMaterialRows), 3);
    EXPECT_EQ(VisibleRow(247, 990.0 / 4, visibleMaterialRows), 0);
}

} // namespace
} // namespace strativo
