#include "project/SaveQuestions.h"

#include "edit/ConstructionSlots.h"
#include "files/SaveChecks.h"
#include "support/TestProject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SaveChecks : public testing::Test {
protected:
    SaveChecks() {
        for (const char* name : {"One", "Two", "Three"})
            project.constructions[AddConstruction(project, {"A", "B"})].name = name;
    }

    void MakeTransparent(int number, float absorption) {
        project.constructions[number].type = transparentType;
        project.constructions[number].layers.Edit(2).absorption = absorption;
    }

    ScriptedPrompts prompts;
    Project project;
};

TEST_F(SaveChecks, PassSilentlyWhereNothingIsFound) {
    EXPECT_TRUE(CheckBeforeSave(project, prompts));
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(SaveChecks, NameTheConstructionsWithAZeroThickness) {
    project.constructions[1].layers.Edit(2).thickness = 0;
    project.constructions[3].layers.Edit(1).thickness = 0;
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(CheckBeforeSave(project, prompts));
    const Message question = {
        "The following construction(s) have at least one zero thickness\r\rOne\rThree\r\r"
        "Do you wish to save anyway?\r",
        "Zero thickness error", Buttons::yesNo, Icon::question};
    EXPECT_THAT(prompts.messages, ElementsAre(question));
}

TEST_F(SaveChecks, NameTheTransparentConstructionsWithoutAbsorption) {
    MakeTransparent(1, 0.5F);
    MakeTransparent(2, 0);
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(CheckBeforeSave(project, prompts));
    const Message question = {
        "The following construction(s) have a total absorption equal to zero\r\rTwo\r\r"
        "Do you wish to save anyway?\r",
        "Zero absorption error", Buttons::yesNo, Icon::question};
    EXPECT_THAT(prompts.messages, ElementsAre(question));
}

TEST_F(SaveChecks, StopAtTheFirstNo) {
    project.constructions[1].layers.Edit(2).thickness = 0;
    MakeTransparent(2, 0);
    prompts.Answers(Answer::no);
    EXPECT_FALSE(CheckBeforeSave(project, prompts));
    EXPECT_EQ(prompts.messages.size(), 1U);
}

TEST_F(SaveChecks, StopAtTheSecondNo) {
    project.constructions[1].layers.Edit(2).thickness = 0;
    MakeTransparent(2, 0);
    prompts.Answers(Answer::yes).Answers(Answer::no);
    EXPECT_FALSE(CheckBeforeSave(project, prompts));
}

TEST_F(SaveChecks, NeverFindAnOpaqueConstructionWithoutAbsorption) {
    EXPECT_THAT(ZeroAbsorptionConstructions(project), IsEmpty());
}

TEST_F(SaveChecks, AddUpTheAbsorptionsOfAllLayers) {
    MakeTransparent(1, 0.25F);
    project.constructions[1].layers.Edit(1).absorption = -0.25F;
    EXPECT_THAT(ZeroAbsorptionConstructions(project), ElementsAre(1));
}

TEST_F(SaveChecks, LeaveOutConstructionsWhoseFirstSlotIsEmpty) {
    project.constructions[1].layers.Edit(1).name.clear();
    project.constructions[1].layers.Edit(2).thickness = 0;
    MakeTransparent(1, 0);
    EXPECT_TRUE(CheckBeforeSave(project, prompts));
}

TEST_F(SaveChecks, LeaveOutEmptySlotsAndRemovedConstructions) {
    project.constructions[1].layers.Edit(2).name.clear();
    project.constructions[1].layers.Edit(2).thickness = 0;
    project.constructions[2].layers.Edit(2).thickness = 0;
    RemoveConstruction(project, 2);
    EXPECT_THAT(ZeroThicknessConstructions(project), IsEmpty());
}

TEST_F(SaveChecks, FindAnEmptyConstructionNeither) {
    MakeTransparent(AddConstruction(project, {"A"}), 0);
    project.constructions[4].layers.ClearFrom(1);
    EXPECT_TRUE(CheckBeforeSave(project, prompts));
}

} // namespace
} // namespace strativo
