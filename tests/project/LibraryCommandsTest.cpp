#include "project/LibraryCommands.h"

#include "files/ConstructionWriter.h"
#include "support/Samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LibraryCommands : public testing::Test {
protected:
    LibraryCommands() {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
        folder.Write("wrong.lby", "no library\n");
        folder.Write("folder/x", "");
        prompts.calls.clear();
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(LibraryCommands, LoadAStandardLibraryAndShowItSorted) {
    prompts.OpensFile("std.lby");
    LoadStandard(project, prompts);
    EXPECT_EQ(project.standardLibraryFile, "std.lby");
    EXPECT_EQ(project.standardLibrary[1].name, "ALUMINIUM");
    EXPECT_EQ(project.shownLibrary, 1);
    EXPECT_FALSE(project.changed);
}

TEST_F(LibraryCommands, ReturnToTheStandardLibraryFromTheUsers) {
    prompts.OpensFile("user.lby").OpensFile("std.lby");
    LoadMaterials(project, prompts);
    EXPECT_EQ(project.shownLibrary, 2);
    LoadStandard(project, prompts);
    EXPECT_EQ(project.shownLibrary, 1);
}

TEST_F(LibraryCommands, KeepTheStandardLibraryWhenThePromptIsCancelled) {
    prompts.OpensFile("std.lby").OpensFile("");
    LoadStandard(project, prompts);
    prompts.calls.clear();
    project.selectedMaterial = 2;
    LoadStandard(project, prompts);
    EXPECT_EQ(project.standardLibraryFile, "std.lby");
    EXPECT_EQ(MaterialCount(project.standardLibrary), 9);
    EXPECT_THAT(prompts.calls, ElementsAre("AskOpen Open standard material file"));
    EXPECT_EQ(project.selectedMaterial, 0);
}

TEST_F(LibraryCommands, PutTheOldNameBackWhenNothingWasLoaded) {
    prompts.OpensFile("std.lby").OpensFile("folder");
    EXPECT_EQ(LoadStandard(project, prompts), LibraryLoad::loaded);
    EXPECT_EQ(LoadStandard(project, prompts), LibraryLoad::failed);
    EXPECT_THAT(prompts.Texts(), ElementsAre("Standard material file error 75 occurred."));
    EXPECT_EQ(project.standardLibraryFile, "std.lby");
    EXPECT_FALSE(project.standardLoaded) << "a new construction tries that file again";
    EXPECT_EQ(MaterialCount(project.standardLibrary), 0);
}

TEST_F(LibraryCommands, EndTheProgramWithoutAQuestionWhenTheStandardFileIsRefused) {
    AddConstruction(project, {"A"});
    project.changed = true;
    prompts.OpensFile("missing.lby").OpensFile("");
    EXPECT_THROW(LoadStandard(project, prompts), ProgramEnd);
    EXPECT_THAT(prompts.Texts(),
                ElementsAre("Standard material file is missing.", "Cancel pressed aborting load"));
}

TEST_F(LibraryCommands, ShowTheCavitiesOfAStandardFileOfWrongVersion) {
    prompts.OpensFile("wrong.lby");
    LoadStandard(project, prompts);
    EXPECT_EQ(project.standardLibraryFile, "wrong.lby");
    EXPECT_TRUE(project.standardLoaded);
    EXPECT_EQ(MaterialCount(project.standardLibrary), 6);
}

TEST_F(LibraryCommands, LinkNoLayerAnew) {
    AddConstruction(project, {"A"});
    project.constructions[1].layers.Edit(1).materialCode = 12;
    prompts.OpensFile("std.lby");
    LoadStandard(project, prompts);
    EXPECT_EQ(LayerNames(project, 1), "A");
}

TEST_F(LibraryCommands, LoadAUserLibraryAndShowItSorted) {
    prompts.OpensFile("user.lby");
    LoadMaterials(project, prompts);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_EQ(project.userLibrary[1].name, "CORK");
    EXPECT_EQ(project.shownLibrary, 2);
    EXPECT_TRUE(project.userLoaded);
}

TEST_F(LibraryCommands, WarnWhenTheUserLibraryIsInUse) {
    project.userLibraryNeeded = true;
    prompts.OpensFile("user.lby");
    LoadMaterials(project, prompts);
    const Message warning = {"The user material file is being used, make sure the\r"
                             "new user file has all the current materials.",
                             "The user material file is in use"};
    EXPECT_THAT(prompts.messages, ElementsAre(warning));
    EXPECT_TRUE(project.userLoaded);
}

TEST_F(LibraryCommands, KeepTheUserLibraryWhenThePromptIsCancelled) {
    prompts.OpensFile("user.lby").OpensFile("");
    LoadMaterials(project, prompts);
    LoadMaterials(project, prompts);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_TRUE(project.userLoaded);
    EXPECT_EQ(MaterialCount(project.userLibrary), 2);
}

TEST_F(LibraryCommands, PutTheOldUserNameBackWhenLoadingIsGivenUpOrFails) {
    prompts.OpensFile("user.lby").OpensFile("missing.lby").OpensFile("").OpensFile("");
    LoadMaterials(project, prompts);
    LoadMaterials(project, prompts);
    EXPECT_EQ(prompts.messages.size(), 2U);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    prompts.OpensFile("folder");
    EXPECT_EQ(MaterialCount(project.userLibrary), 2);
    EXPECT_EQ(LoadMaterials(project, prompts), LibraryLoad::failed);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(project.shownLibrary, 1);
    EXPECT_EQ(MaterialCount(project.userLibrary), 0);
}

TEST_F(LibraryCommands, SortTheLoadedLibraryWhicheverIsShown) {
    prompts.OpensFile("user.lby").OpensFile("std.lby");
    LoadMaterials(project, prompts);
    EXPECT_EQ(project.shownLibrary, 2);
    LoadStandard(project, prompts);
    EXPECT_EQ(project.standardLibrary[1].name, "ALUMINIUM");
}

TEST_F(LibraryCommands, PutTheOldNameBackOverAnEmptyLibraryAfterAWrongVersion) {
    prompts.OpensFile("user.lby").OpensFile("wrong.lby");
    LoadMaterials(project, prompts);
    prompts.calls.clear();
    LoadMaterials(project, prompts);
    EXPECT_THAT(prompts.Texts(), ElementsAre("User material file is incorrect version"));
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(MaterialCount(project.userLibrary), 0);
    EXPECT_EQ(project.shownLibrary, 1);
}

TEST_F(LibraryCommands, SaveUserLayersWithoutTheLibraryLineAfterAWrongVersion) {
    prompts.OpensFile("user.lby").OpensFile("wrong.lby");
    LoadMaterials(project, prompts);
    AddConstruction(project, {"HEMP"});
    project.constructions[1].layers.Edit(1).library = userLibraryNumber;
    LoadMaterials(project, prompts);
    const std::string bytes = FormatConstructionFile(project);
    EXPECT_EQ(bytes.find("!MATERIALS USER FILE"), std::string::npos);
    EXPECT_NE(bytes.find("_ 1 =      @1      0.100"), std::string::npos);
}

} // namespace
} // namespace strativo
