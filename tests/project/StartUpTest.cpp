#include "project/FileCommands.h"
#include "project/NewProject.h"
#include "support/Samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;

TEST(Project, IsConstructedAsThatOfAProgramJustStarted) {
    const Project project;
    EXPECT_EQ(MaterialCount(project.standardLibrary), 0);
    EXPECT_EQ(MaterialCount(project.userLibrary), 0);
    EXPECT_EQ(project.standardLibraryFile, singleBlank);
    EXPECT_EQ(project.userLibraryFile, "");
    EXPECT_FALSE(project.standardLoaded);
    EXPECT_FALSE(project.userLoaded);
    EXPECT_FALSE(project.userLibraryNeeded);
    EXPECT_FALSE(project.closingInProgress);
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(project.clipboard[1].name, "");
    EXPECT_EQ(project.constructionFile, "");
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_EQ(project.constructions.Size(), 1);
    EXPECT_EQ(project.currentConstruction, 1);
    EXPECT_EQ(project.shownLibrary, 1);
    EXPECT_EQ(project.helpFile, ".");
    EXPECT_EQ(project.rememberedLibrary, "..\\stdmat.lby");
    EXPECT_FALSE(InUse(project, 1)) << "slot 1 exists but is no construction";
}

TEST(StartUp, AddsTheSettings) {
    Project project;
    StartUp(project, {"help.html", "std.lby"});
    EXPECT_EQ(project.helpFile, "help.html");
    EXPECT_EQ(project.rememberedLibrary, "std.lby");
    EXPECT_EQ(project.startDirectory, std::filesystem::current_path().string());
}

TEST(EndOfStartUp, OrdersTheEmptyMaterialListWithoutACommandLine) {
    ScriptedPrompts prompts;
    Project project;
    project.selectedMaterial = 1;
    OrderMaterialList(project);
    OpenCommandLine(project, "", prompts);
    EXPECT_EQ(project.selectedMaterial, 0);
    EXPECT_THAT(prompts.calls, testing::IsEmpty());
}

TEST(EndOfStartUp, TakesTheWholeCommandLineAsOnePath) {
    const TemporaryFolder folder;
    folder.Write("my house.con", "!CONSTRUCTION 'Wall'\r\n!END\r\n");
    folder.Write("stdmat.lby", standardLibraryBytes);
    ScriptedPrompts prompts;
    Project project;
    project.rememberedLibrary = "stdmat.lby";
    OpenCommandLine(project, "my house.con", prompts);
    EXPECT_EQ(project.constructionFile, "my house.con");
    EXPECT_EQ(project.constructions[1].name, "Wall");
}

TEST(EndOfStartUp, ReportsAPathThatCannotBeReadAsACommandLineError) {
    const TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
    OpenCommandLine(project, "missing house.con", prompts);
    EXPECT_THAT(prompts.messages,
                ElementsAre(Message{"Command line error\rConstruction file (p) is missing.", ""}));
    EXPECT_EQ(project.constructionFile, "");
}

} // namespace
} // namespace strativo
