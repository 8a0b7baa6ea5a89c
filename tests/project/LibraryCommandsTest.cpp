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
    LibraryCommands() : project(StartedProject(desktop)) {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
        folder.Write("wrong.lby", "no library\n");
        folder.Write("folder/x", "");
        desktop.calls.clear();
    }

    TemporaryFolder folder;
    ScriptedDesktop desktop;
    Project project;
};

TEST_F(LibraryCommands, LoadAStandardLibraryAndShowItSorted) {
    desktop.OpensFile("std.lby");
    LoadStandard(project, desktop);
    EXPECT_EQ(project.standardLibraryFile, "std.lby");
    EXPECT_EQ(project.standardLibrary[1].name, "ALUMINIUM");
    EXPECT_THAT(desktop.calls,
                ElementsAre("AskOpen Open standard material file", "RefreshMaterialList",
                            "EnableOption 0 1", "SelectOption 0", "RefreshMaterialList"));
    EXPECT_FALSE(project.changed);
}

TEST_F(LibraryCommands, ReturnToTheStandardLibraryFromTheUsers) {
    desktop.OpensFile("user.lby").OpensFile("std.lby");
    LoadMaterials(project, desktop);
    EXPECT_EQ(project.shownLibrary, 2);
    LoadStandard(project, desktop);
    EXPECT_EQ(project.shownLibrary, 1);
}

TEST_F(LibraryCommands, KeepTheStandardLibraryWhenThePromptIsCancelled) {
    desktop.OpensFile("std.lby").OpensFile("");
    LoadStandard(project, desktop);
    desktop.calls.clear();
    LoadStandard(project, desktop);
    EXPECT_EQ(project.standardLibraryFile, "std.lby");
    EXPECT_EQ(MaterialCount(project.standardLibrary), 9);
    EXPECT_THAT(desktop.calls,
                ElementsAre("AskOpen Open standard material file", "RefreshMaterialList"));
}

TEST_F(LibraryCommands, PutTheOldNameBackWhenNothingWasLoaded) {
    desktop.OpensFile("std.lby").OpensFile("folder");
    EXPECT_EQ(LoadStandard(project, desktop), LibraryLoad::loaded);
    EXPECT_EQ(LoadStandard(project, desktop), LibraryLoad::failed);
    EXPECT_THAT(desktop.Texts(), ElementsAre("Standard material file error 75 occurred."));
    EXPECT_EQ(project.standardLibraryFile, "std.lby");
    EXPECT_FALSE(project.standardLoaded) << "a new construction tries that file again";
    EXPECT_EQ(MaterialCount(project.standardLibrary), 0);
}

TEST_F(LibraryCommands, EndTheProgramWithoutAQuestionWhenTheStandardFileIsRefused) {
    AddConstruction(project, desktop, {"A"});
    project.changed = true;
    desktop.OpensFile("missing.lby").OpensFile("");
    EXPECT_THROW(LoadStandard(project, desktop), ProgramEnd);
    EXPECT_THAT(desktop.Texts(),
                ElementsAre("Standard material file is missing.", "Cancel pressed aborting load"));
}

TEST_F(LibraryCommands, ShowTheCavitiesOfAStandardFileOfWrongVersion) {
    desktop.OpensFile("wrong.lby");
    LoadStandard(project, desktop);
    EXPECT_EQ(project.standardLibraryFile, "wrong.lby");
    EXPECT_TRUE(project.standardLoaded);
    EXPECT_EQ(MaterialCount(project.standardLibrary), 6);
}

TEST_F(LibraryCommands, LinkNoLayerAnew) {
    AddConstruction(project, desktop, {"A"});
    project.constructions[1].layers.Edit(1).materialCode = 12;
    desktop.OpensFile("std.lby");
    LoadStandard(project, desktop);
    EXPECT_EQ(LayerNames(project, 1), "A");
}

TEST_F(LibraryCommands, LoadAUserLibraryAndShowItSorted) {
    desktop.OpensFile("user.lby");
    LoadMaterials(project, desktop);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_EQ(project.userLibrary[1].name, "CORK");
    EXPECT_EQ(project.shownLibrary, 2);
    EXPECT_THAT(desktop.calls, ElementsAre("AskOpen Open user material file", "EnableOption 1 1",
                                           "RefreshMaterialList", "EnableOption 1 1",
                                           "SelectOption 1", "RefreshMaterialList"));
}

TEST_F(LibraryCommands, WarnWhenTheUserLibraryIsInUse) {
    project.userLibraryNeeded = true;
    desktop.OpensFile("user.lby");
    LoadMaterials(project, desktop);
    const Message warning = {"The user material file is being used, make sure the\r"
                             "new user file has all the current materials.",
                             "The user material file is in use"};
    EXPECT_THAT(desktop.messages, ElementsAre(warning));
    EXPECT_TRUE(project.userLoaded);
}

TEST_F(LibraryCommands, KeepTheUserLibraryWhenThePromptIsCancelled) {
    desktop.OpensFile("user.lby").OpensFile("");
    LoadMaterials(project, desktop);
    LoadMaterials(project, desktop);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_TRUE(project.userLoaded);
    EXPECT_EQ(MaterialCount(project.userLibrary), 2);
}

TEST_F(LibraryCommands, PutTheOldUserNameBackWhenLoadingIsGivenUpOrFails) {
    desktop.OpensFile("user.lby").OpensFile("missing.lby").OpensFile("").OpensFile("");
    LoadMaterials(project, desktop);
    LoadMaterials(project, desktop);
    EXPECT_EQ(desktop.messages.size(), 2U);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    desktop.OpensFile("folder");
    EXPECT_EQ(MaterialCount(project.userLibrary), 2);
    EXPECT_EQ(LoadMaterials(project, desktop), LibraryLoad::failed);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(project.shownLibrary, 1);
    EXPECT_EQ(MaterialCount(project.userLibrary), 0);
}

TEST_F(LibraryCommands, SortTheLoadedLibraryWhicheverIsShown) {
    desktop.OpensFile("user.lby").OpensFile("std.lby");
    LoadMaterials(project, desktop);
    EXPECT_EQ(project.shownLibrary, 2);
    LoadStandard(project, desktop);
    EXPECT_EQ(project.standardLibrary[1].name, "ALUMINIUM");
}

TEST_F(LibraryCommands, PutTheOldNameBackOverAnEmptyLibraryAfterAWrongVersion) {
    desktop.OpensFile("user.lby").OpensFile("wrong.lby");
    LoadMaterials(project, desktop);
    desktop.calls.clear();
    LoadMaterials(project, desktop);
    EXPECT_THAT(desktop.Texts(), ElementsAre("User material file is incorrect version"));
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(MaterialCount(project.userLibrary), 0);
    EXPECT_EQ(project.shownLibrary, 1);
    EXPECT_EQ(desktop.Count("EnableOption 1 0"), 1);
    EXPECT_EQ(desktop.Count("SelectOption 0"), 1);
    EXPECT_EQ(desktop.Count("SelectOption 1"), 0);
}

TEST_F(LibraryCommands, SaveUserLayersWithoutTheLibraryLineAfterAWrongVersion) {
    desktop.OpensFile("user.lby").OpensFile("wrong.lby");
    LoadMaterials(project, desktop);
    AddConstruction(project, desktop, {"HEMP"});
    project.constructions[1].layers.Edit(1).library = userLibraryNumber;
    LoadMaterials(project, desktop);
    const std::string bytes = FormatConstructionFile(project);
    EXPECT_EQ(bytes.find("!MATERIALS USER FILE"), std::string::npos);
    EXPECT_NE(bytes.find("_ 1 =      @1      0.100"), std::string::npos);
}

} // namespace
} // namespace strativo
