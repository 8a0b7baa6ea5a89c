#include "edit/GlassTypes.h"

#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

using Names = std::vector<std::string>;

class GlassTypesTest : public testing::Test {
protected:
    GlassTypesTest() { prompts.calls.clear(); }
    void AddAll(const Names& names) {
        for (const std::string& name : names)
            AddGlassType(project, name);
    }
    /// Names of all slots, free ones included.
    Names Slots() const {
        Names names;
        for (const GlassType& type : project.glassTypes)
            names.push_back(type.name);
        return names;
    }

    ScriptedPrompts prompts;
    Project project;
};

TEST_F(GlassTypesTest, StartWithOneFreeSlotOfEitherKind) {
    EXPECT_EQ(project.glassTypes.Size(), 1);
    EXPECT_EQ(project.glassTypes2D.Size(), 1);
    EXPECT_EQ(project.currentGlassType, 1);
    EXPECT_EQ(project.currentGlassType2D, 1);
    EXPECT_EQ(GlassTypeNames(project), Names{});
}

TEST_F(GlassTypesTest, FillTheFirstFreeSlotAndThenGrow) {
    AddGlassType(project, "CLEAR");
    EXPECT_EQ(project.currentGlassType, 1);
    AddGlassType(project, "BRONZE");
    EXPECT_EQ(project.currentGlassType, 2);
    EXPECT_EQ(Slots(), (Names{"CLEAR", "BRONZE"}));
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassTypesTest, MayHaveOneNameTwice) {
    AddAll({"CLEAR", "CLEAR"});
    EXPECT_EQ(GlassTypeNames(project), (Names{"CLEAR", "CLEAR"}));
}

TEST_F(GlassTypesTest, ListOnlyNamedSlotsAndNoneOfTwoDimensions) {
    AddAll({"A", "B", "C"});
    AddGlassType2D(project, "TWO");
    project.glassTypes[2].name.clear();
    EXPECT_EQ(GlassTypeNames(project), (Names{"A", "C"}));
}

TEST_F(GlassTypesTest, OfTwoDimensionsHaveSlotsOfTheirOwn) {
    AddGlassType2D(project, "ONE");
    project.glassTypes2D[1].transmission[3][4] = 0.5F;
    AddGlassType2D(project, "TWO");
    EXPECT_EQ(project.currentGlassType2D, 2);
    EXPECT_EQ(project.currentGlassType, 1);
    project.glassTypes2D[1].name.clear();
    project.freeGlassHint2D = 1;
    AddGlassType2D(project, "NEW");
    EXPECT_EQ(project.currentGlassType2D, 1);
    EXPECT_EQ(project.glassTypes2D[1].transmission[3][4], 0);
}

TEST_F(GlassTypesTest, ReuseADeletedSlotWithoutItsValuesAndComments) {
    AddAll({"A", "B", "C"});
    GlassType& deleted = project.glassTypes[2];
    deleted.transmission[1] = 0.7F;
    deleted.diffusion[11] = 0.1F;
    deleted.hasDiffusion = true;
    project.comments.glassTypes.Add(2, "note");
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(DeleteGlassType(project, "B", prompts));
    EXPECT_EQ(GlassTypeNames(project), (Names{"A", "C"}));
    AddGlassType(project, "D");
    EXPECT_EQ(project.currentGlassType, 2);
    EXPECT_EQ(Slots(), (Names{"A", "D", "C"}));
    EXPECT_EQ(project.glassTypes[2].transmission, AngularValues());
    EXPECT_EQ(project.glassTypes[2].diffusion, AngularValues());
    EXPECT_FALSE(project.glassTypes[2].hasDiffusion);
    EXPECT_EQ(project.comments.glassTypes.Of(2), CommentLines{});
}

TEST_F(GlassTypesTest, AddedWithoutANameLeaveTheirSlotFree) {
    AddAll({"A"});
    AddGlassType(project, "");
    EXPECT_EQ(project.currentGlassType, 2);
    EXPECT_EQ(GlassTypeNames(project), Names{"A"});
    AddGlassType(project, "B");
    EXPECT_EQ(project.currentGlassType, 2);
}

TEST_F(GlassTypesTest, AreEditedByTheLastOfEqualNames) {
    AddAll({"CLEAR", "BRONZE", "CLEAR", "GREY"});
    EXPECT_TRUE(FindGlassType(project, "CLEAR"));
    EXPECT_EQ(project.currentGlassType, 3);
}

TEST_F(GlassTypesTest, AreFoundByTheExactNameOnly) {
    AddAll({"CLEAR", "GREY"});
    for (const char* name : {"clear", "CLEAR ", "GREEN", ""})
        EXPECT_FALSE(FindGlassType(project, name)) << name;
    EXPECT_EQ(project.currentGlassType, 2);
}

TEST_F(GlassTypesTest, AreDeletedByTheFirstOfEqualNames) {
    AddAll({"BRONZE", "CLEAR", "CLEAR"});
    project.glassTypes[2].transmission[1] = 0.7F;
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(DeleteGlassType(project, "CLEAR", prompts));
    EXPECT_EQ(Slots(), (Names{"BRONZE", "", "CLEAR"}));
    EXPECT_EQ(project.glassTypes[2].transmission[1], 0.7F)
        << "values stay until the slot is reused";
    EXPECT_TRUE(project.changed);
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0], YesNoQuestion("Do you want to delete this window type?",
                                                 "Delete Window Type", Answer::no));
}

TEST_F(GlassTypesTest, AreDeletedFirstAndLast) {
    AddAll({"A", "B", "C"});
    prompts.Answers(Answer::yes).Answers(Answer::yes);
    EXPECT_TRUE(DeleteGlassType(project, "A", prompts));
    EXPECT_TRUE(DeleteGlassType(project, "C", prompts));
    EXPECT_EQ(Slots(), (Names{"", "B", ""}));
}

TEST_F(GlassTypesTest, StayWhenDeletionIsRefused) {
    AddAll({"CLEAR"});
    for (const Answer answer : {Answer::no, Answer::cancel}) {
        prompts.Answers(answer);
        EXPECT_FALSE(DeleteGlassType(project, "CLEAR", prompts));
    }
    EXPECT_EQ(Slots(), Names{"CLEAR"});
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassTypesTest, AreNotDeletedByANameThatIsGone) {
    AddAll({"CLEAR"});
    prompts.Answers(Answer::yes);
    EXPECT_FALSE(DeleteGlassType(project, "GONE", prompts));
    EXPECT_FALSE(DeleteGlassType(project, "", prompts)) << "no selection asks nothing";
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassTypesTest, AreResetWithTheirCounters) {
    AddAll({"A", "B"});
    AddGlassType2D(project, "C");
    project.glassSectionsRead = 5;
    project.glassSectionsRead2D = 6;
    ResetGlassTypes(project);
    EXPECT_EQ(Slots(), Names{""});
    EXPECT_EQ(project.glassTypes2D.Size(), 1);
    EXPECT_EQ(project.currentGlassType, 1);
    EXPECT_EQ(project.glassSectionsRead, 0);
    EXPECT_EQ(project.glassSectionsRead2D, 0);
    AddGlassType(project, "NEW");
    EXPECT_EQ(Slots(), Names{"NEW"});
}

} // namespace
} // namespace strativo
