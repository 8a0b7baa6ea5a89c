#include "project/NewProject.h"

#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "support/Samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NewProjectCommand : public testing::Test {
protected:
    NewProjectCommand() {}

    ScriptedPrompts prompts;
    Project project;
};

TEST_F(NewProjectCommand, AsksBeforeChangesAreLost) {
    AddConstruction(project, {"A"});
    project.changed = true;
    prompts.Answers(Answer::no);
    EXPECT_FALSE(NewProject(project, prompts));
    const Message question = {"Changes have not been saved.  Continue without saving?", "Warning",
                              Buttons::yesNo, Icon::question, Answer::no};
    EXPECT_THAT(prompts.messages, ElementsAre(question));
    EXPECT_EQ(LayerNames(project, 1), "A");
    EXPECT_TRUE(project.changed);
    EXPECT_TRUE(InUse(project, 1));
}

TEST_F(NewProjectCommand, TakesACancelForARefusal) {
    AddConstruction(project, {"A"});
    project.changed = true;
    prompts.Answers(Answer::cancel);
    EXPECT_FALSE(ConfirmDiscardChanges(project, prompts));
}

TEST_F(NewProjectCommand, AsksNothingWithoutChanges) {
    AddConstruction(project, {"A"});
    EXPECT_TRUE(NewProject(project, prompts));
    EXPECT_THAT(prompts.messages, IsEmpty());
}

TEST_F(NewProjectCommand, AsksNothingWithoutAConstructionWhateverGlassWasEdited) {
    AddGlassType(project, "G");
    project.changed = true;
    EXPECT_TRUE(NewProject(project, prompts));
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_THAT(GlassTypeNames(project), IsEmpty());
}

TEST_F(NewProjectCommand, EmptiesTheProject) {
    AddConstruction(project, {"A"});
    AddConstruction(project, {"B", "C"});
    AddGlassType(project, "G");
    AddGlassType2D(project, "H");
    project.comments.fileHead = {"head"};
    project.comments.constructions.Add(1, "one");
    project.glassSectionsRead = 3;
    project.userLibraryNeeded = true;
    project.constructionFile = "a.con";
    project.changed = true;
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(NewProject(project, prompts));
    EXPECT_EQ(project.beginnings, 1U);
    EXPECT_EQ(project.glassTypeList.listings, 1U);
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_EQ(project.constructions.Size(), 1);
    EXPECT_EQ(project.currentConstruction, 1);
    EXPECT_EQ(project.constructions[1].currentLayer, 0);
    EXPECT_EQ(LayerNames(project, 1), "");
    EXPECT_EQ(project.glassTypes.Size(), 1);
    EXPECT_EQ(project.glassTypes2D.Size(), 1);
    EXPECT_EQ(project.currentGlassType, 1);
    EXPECT_THAT(project.comments.fileHead, IsEmpty());
    EXPECT_THAT(project.comments.constructions.Of(1), IsEmpty());
    EXPECT_EQ(project.glassSectionsRead, 0);
    EXPECT_FALSE(project.userLibraryNeeded);
    EXPECT_EQ(project.constructionFile, "");
    EXPECT_FALSE(project.changed);
}

TEST_F(NewProjectCommand, KeepsLibrariesAndClipboard) {
    project.userLoaded = true;
    project.userLibraryFile = "user.lby";
    project.standardLoaded = true;
    project.clipboard[1].name = "A";
    EXPECT_TRUE(NewProject(project, prompts));
    EXPECT_TRUE(project.userLoaded);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_TRUE(project.standardLoaded);
    EXPECT_EQ(project.clipboard[1].name, "A");
}

TEST_F(NewProjectCommand, RemovesConstructionsBehindGapsToo) {
    for (int number = 1; number <= 3; ++number)
        AddConstruction(project, {"A"});
    RemoveConstruction(project, 1);
    project.changed = false;
    EXPECT_TRUE(NewProject(project, prompts));
    EXPECT_FALSE(InUse(project, 3));
    EXPECT_EQ(project.constructionCount, 0);
}

class NewConstructionCommand : public testing::Test {
protected:
    NewConstructionCommand() {
        folder.Write("stdmat.lby", standardLibraryBytes);
        project.rememberedLibrary = "stdmat.lby";
        prompts.calls.clear();
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(NewConstructionCommand, LoadsTheStandardLibraryFirstAndShowsItSorted) {
    NewConstruction(project, prompts);
    EXPECT_TRUE(project.standardLoaded);
    EXPECT_EQ(project.standardLibraryFile, "stdmat.lby");
    EXPECT_EQ(project.standardLibrary[1].name, "ALUMINIUM");
    EXPECT_THAT(prompts.calls, IsEmpty());
    EXPECT_TRUE(InUse(project, 1));
    EXPECT_EQ(project.windowToActivate, 1);
    EXPECT_FALSE(project.changed);
}

TEST_F(NewConstructionCommand, BringsAHiddenDialogBack) {
    project.dialogHidden = true;
    NewConstruction(project, prompts);
    EXPECT_FALSE(project.dialogHidden);
}

TEST_F(NewConstructionCommand, MakesAnEmptyOpaqueConstructionWithItsNumberAsName) {
    NewConstruction(project, prompts);
    folder.Write("stdmat.lby", "1'OTHER' 1 2 3\n");
    NewConstruction(project, prompts);
    EXPECT_EQ(project.constructionCount, 2);
    EXPECT_EQ(project.currentConstruction, 2);
    EXPECT_EQ(project.constructions[1].name, "Construction 1");
    EXPECT_EQ(project.constructions[2].name, "Construction 2");
    EXPECT_EQ(project.constructions[2].type, opaqueType);
    EXPECT_EQ(project.constructions[2].currentLayer, 0);
    EXPECT_EQ(project.standardLibrary[1].name, "ALUMINIUM") << "the library is loaded once";
}

TEST_F(NewConstructionCommand, FillsTheLowestGapWithoutAnythingOfTheRemovedOne) {
    for (int number = 1; number <= 3; ++number)
        AddConstruction(project, {"A", "B"});
    project.constructions[2].type = transparentType;
    project.comments.constructions.Add(2, "old");
    RemoveConstruction(project, 2);
    NewConstruction(project, prompts);
    EXPECT_EQ(project.currentConstruction, 2);
    EXPECT_EQ(project.constructions[2].name, "Construction 2");
    EXPECT_EQ(project.constructions[2].type, opaqueType);
    EXPECT_EQ(LayerNames(project, 2), "");
    EXPECT_THAT(project.comments.constructions.Of(2), IsEmpty());
}

TEST_F(NewConstructionCommand, LooksForTheDefaultLibraryInTheFolderAboveTheWorkingDirectory) {
    project.rememberedLibrary = Settings().stdMat;
    folder.Write("work/x", "");
    std::filesystem::current_path("work");
    NewConstruction(project, prompts);
    std::filesystem::current_path("..");
    EXPECT_TRUE(project.standardLoaded);
    EXPECT_EQ(project.standardLibraryFile, "..\\stdmat.lby");
}

TEST_F(NewConstructionCommand, EndsTheProgramBeforeAnythingIsMadeWhenTheLibraryIsRefused) {
    project.rememberedLibrary = "missing.lby";
    prompts.OpensFile("");
    EXPECT_THROW(NewConstruction(project, prompts), ProgramEnd);
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_FALSE(InUse(project, 1));
    EXPECT_THAT(prompts.Texts(),
                ElementsAre("Standard material file is missing.", "Cancel pressed aborting load"));
}

TEST_F(NewConstructionCommand, TriesAgainTheNextTimeAfterALoadThatFailed) {
    folder.Write("folder/x", "");
    project.rememberedLibrary = "folder";
    NewConstruction(project, prompts);
    EXPECT_THAT(prompts.Texts(), ElementsAre("Standard material file error 75 occurred."));
    EXPECT_FALSE(project.standardLoaded);
    NewConstruction(project, prompts);
    EXPECT_EQ(prompts.messages.size(), 2U);
    EXPECT_EQ(project.constructionCount, 2);
}

} // namespace
} // namespace strativo
