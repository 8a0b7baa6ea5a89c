#include "edit/ConstructionSlots.h"

#include "edit/EditTest.h"
#include "project/NewProject.h"

namespace strativo {
namespace {

using ConstructionSlotsTest = EditTest;

TEST_F(ConstructionSlotsTest, StartWithOneThatIsNotInUse) {
    EXPECT_EQ(project.constructions.Size(), 1);
    EXPECT_FALSE(InUse(project, 1));
    EXPECT_EQ(FirstFreeConstructionSlot(project), 1);
    EXPECT_EQ(project.constructions.Size(), 1);
}

TEST_F(ConstructionSlotsTest, GrowByOneWhereNoneIsFree) {
    EXPECT_EQ(Add("A"), 1);
    EXPECT_EQ(Add("B"), 2);
    EXPECT_EQ(FirstFreeConstructionSlot(project), 3);
    EXPECT_EQ(FirstFreeConstructionSlot(project), 3);
    EXPECT_EQ(project.constructions.Size(), 3);
    EXPECT_EQ(LayerNames(project, 1), "A");
}

TEST_F(ConstructionSlotsTest, AreFilledFromTheLowestGap) {
    for (int i = 0; i < 4; ++i)
        Add("A");
    RemoveConstruction(project, 3);
    RemoveConstruction(project, 2);
    EXPECT_EQ(Add("B"), 2);
    EXPECT_EQ(Add("C"), 3);
    EXPECT_EQ(Add("D"), 5);
}

TEST_F(ConstructionSlotsTest, AreOutOfUseAfterRemovalAndKeepTheirNumbers) {
    for (int i = 0; i < 3; ++i)
        Add("A");
    project.changed = false;
    RemoveConstruction(project, 2);
    EXPECT_EQ(project.constructions[2].type, removedType);
    EXPECT_FALSE(InUse(project, 2));
    EXPECT_TRUE(InUse(project, 3));
    EXPECT_EQ(project.constructionCount, 2);
    EXPECT_TRUE(project.changed);
}

TEST_F(ConstructionSlotsTest, LeaveTheCountAtZeroOnFurtherRemovals) {
    Add("A");
    RemoveConstruction(project, 1);
    EXPECT_EQ(project.constructionCount, 0);
    prompts.calls.clear();
    RemoveConstruction(project, 1);
    RemoveConstruction(project, 0);
    RemoveConstruction(project, 99);
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_TRUE(prompts.calls.empty());
}

TEST_F(ConstructionSlotsTest, CountNoSecondRemovalOfTheSameSlot) {
    Add("A");
    Add("B");
    RemoveConstruction(project, 1);
    RemoveConstruction(project, 1);
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_TRUE(InUse(project, 2));
}

TEST_F(ConstructionSlotsTest, StartAnewEmptyAndOpaqueWhenReused) {
    Add("ABC");
    project.constructions[1].type = transparentType;
    project.comments.constructions.Add(1, "old note");
    RemoveConstruction(project, 1);
    EXPECT_EQ(Add(""), 1);
    const Construction& construction = project.constructions[1];
    EXPECT_EQ(construction.name, "Construction 1");
    EXPECT_EQ(construction.type, opaqueType);
    EXPECT_EQ(construction.currentLayer, 0);
    EXPECT_EQ(LayerCount(construction), 0);
    EXPECT_EQ(project.comments.constructions.Of(1), CommentLines{});
}

TEST_F(ConstructionSlotsTest, MakeTheMostRecentlyActiveOneCurrentAfterARemoval) {
    for (int i = 0; i < 3; ++i)
        Add("A");
    ActivateConstruction(project, 1);
    ActivateConstruction(project, 3);
    RemoveConstruction(project, 3);
    EXPECT_EQ(project.currentConstruction, 1);
    RemoveConstruction(project, 1);
    EXPECT_EQ(project.currentConstruction, 2);
}

TEST_F(ConstructionSlotsTest, KeepTheCurrentOneWhenAnotherIsRemoved) {
    for (int i = 0; i < 3; ++i)
        Add("A");
    ActivateConstruction(project, 2);
    RemoveConstruction(project, 3);
    EXPECT_EQ(project.currentConstruction, 2);
}

TEST_F(ConstructionSlotsTest, HaveNoLatestActiveOneWhenNoneIsInUse) {
    EXPECT_EQ(LatestActiveConstruction(project), 0);
    Add("A");
    EXPECT_EQ(LatestActiveConstruction(project), 1);
    RemoveConstruction(project, 1);
    EXPECT_EQ(LatestActiveConstruction(project), 0);
    EXPECT_EQ(project.currentConstruction, 1);
}

// Reading a file removes by the count only, so that higher numbers stay open after gaps.
TEST_F(ConstructionSlotsTest, AreRemovedUpToANumberAndHigherOnesStay) {
    for (int i = 0; i < 3; ++i)
        Add("A");
    RemoveConstruction(project, 1);
    RemoveConstructions(project, project.constructionCount);
    EXPECT_FALSE(InUse(project, 2));
    EXPECT_TRUE(InUse(project, 3));
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_EQ(project.currentConstruction, 3);
}

TEST_F(ConstructionSlotsTest, HaveTheirWindowsMinimisedRemovedOnesIncluded) {
    EXPECT_EQ(SlotsToMinimise(project), std::vector<int>{});
    for (int i = 0; i < 3; ++i)
        Add("A");
    RemoveConstruction(project, 2);
    EXPECT_EQ(SlotsToMinimise(project), (std::vector<int>{1, 2, 3}));
    RemoveConstruction(project, 1);
    RemoveConstruction(project, 3);
    EXPECT_EQ(SlotsToMinimise(project), std::vector<int>{});
}

TEST_F(ConstructionSlotsTest, AreCutBackToOneByANewProject) {
    for (int i = 0; i < 3; ++i)
        Add("A");
    project.changed = false;
    ASSERT_TRUE(NewProject(project, prompts));
    EXPECT_EQ(project.constructions.Size(), 1);
    EXPECT_EQ(project.currentConstruction, 1);
    EXPECT_EQ(Add("A"), 1);
}

TEST(CloseUpLayers, MovesLayersWithTheirMarksIntoEmptySlots) {
    Construction construction;
    construction.layers.Edit(2).name = "A";
    construction.layers.Edit(5).name = "B";
    construction.layers.Edit(5).selected = true;
    CloseUpLayers(construction);
    EXPECT_EQ(construction.layers[1].name, "A");
    EXPECT_EQ(construction.layers[2].name, "B");
    EXPECT_TRUE(construction.layers[2].selected);
    EXPECT_EQ(construction.layers.HighestUsed(), 2);
}

TEST(CloseUpLayers, LeavesAFullConstructionAlone) {
    Construction construction;
    for (int slot = 1; slot <= maxLayers; ++slot)
        construction.layers.Edit(slot).name = "A";
    CloseUpLayers(construction);
    EXPECT_EQ(LayerCount(construction), maxLayers);
    Construction empty;
    CloseUpLayers(empty);
    EXPECT_EQ(empty.layers.HighestUsed(), 0);
}

TEST_F(ConstructionSlotsTest, TellEachUseOfASlotFromTheOneBefore) {
    Add("A");
    const unsigned before = project.constructions[1].window.opening;
    RemoveConstruction(project, 1);
    Add("B");
    EXPECT_TRUE(InUse(project, 1));
    EXPECT_NE(project.constructions[1].window.opening, before);
}

TEST_F(ConstructionSlotsTest, AreNotGivenUpByAWindowsCloseBox) {
    Add("A");
    EXPECT_FALSE(MayCloseWindow(project, 1));
    EXPECT_EQ(project.said,
              "This button closes no construction: Remove construction in the File menu does");
    project.said.clear();
    project.closingInProgress = true;
    EXPECT_TRUE(MayCloseWindow(project, 1));
    project.closingInProgress = false;
    RemoveConstruction(project, 1);
    EXPECT_TRUE(MayCloseWindow(project, 1)) << "an empty window";
    EXPECT_EQ(project.said, "");
}

TEST(ConstructionTitle, HasABlankBeforeTheNumber) {
    EXPECT_EQ(ConstructionTitle(1), "Construction 1");
    EXPECT_EQ(ConstructionTitle(5000), "Construction 5000");
}

} // namespace
} // namespace strativo
