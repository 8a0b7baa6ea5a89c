#include "project/ReadConstructionFile.h"

#include "edit/ConstructionEntry.h"
#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "edit/LayerClipboard.h"
#include "edit/LayerDrag.h"
#include "files/ConstructionWriter.h"
#include "project/FileCommands.h"
#include "project/LibraryCommands.h"
#include "project/NewProject.h"
#include "support/Samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ReadingAFile : public testing::Test {
protected:
    ReadingAFile() {
        folder.Write("stdmat.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
        project.rememberedLibrary = "stdmat.lby";
    }

    void Read(const std::vector<std::string>& lines) {
        folder.Write("house.con", Lines(lines));
        prompts.calls.clear();
        ReadConstructionFile(project, "house.con", prompts);
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(ReadingAFile, LinksTheLayersToTheLibraries) {
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!MATERIALS USER FILE = 'user.lby'",
          "!CONSTRUCTION 'Wall'", "_ 1 =       12      0.105      0 * old name",
          "_ 2 =      @12      0.040      0 ", "!END"});
    EXPECT_THAT(prompts.messages, IsEmpty());
    const Layer& brick = project.constructions[1].layers[1];
    EXPECT_EQ(brick.name, "FACE BRICK");
    EXPECT_EQ(brick.conductivity, 0.84F);
    EXPECT_EQ(brick.density, 1700);
    EXPECT_EQ(brick.specificHeat, 800);
    EXPECT_EQ(brick.thickness, 105);
    EXPECT_EQ(project.constructions[1].layers[2].name, "HEMP");
    EXPECT_EQ(project.constructions[1].layers[2].conductivity, 0.04F);
    EXPECT_TRUE(project.userLibraryNeeded);
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(project.constructionFile, "house.con");
}

TEST_F(ReadingAFile, ShowsTheStandardLibraryAndTheLastConstruction) {
    Read({"!MATERIALS USER FILE = 'user.lby'", "!CONSTRUCTION 'A'", "!END", "!CONSTRUCTION 'B'",
          "!END"});
    EXPECT_EQ(project.shownLibrary, 1);
    EXPECT_TRUE(project.userLoaded);
    EXPECT_EQ(project.currentConstruction, 2);
    EXPECT_TRUE(InUse(project, 1));
    EXPECT_TRUE(InUse(project, 2));
    EXPECT_EQ(project.windowToActivate, 2);
    EXPECT_EQ(project.glassTypeList.listings, 1U);
}

TEST_F(ReadingAFile, MakesLayerOneCurrentEvenInAnEmptyConstruction) {
    Read({"!CONSTRUCTION 'A'", "!END", "!CONSTRUCTION 'B'", "_ 1 = 12 0.1 0", "_ 2 = 30 0.1 0",
          "!END"});
    EXPECT_EQ(project.constructions[1].currentLayer, 1);
    EXPECT_EQ(project.constructions[2].currentLayer, 1);
}

TEST_F(ReadingAFile, NamesCavitiesInTheSpellingOfLayers) {
    Read({"!CONSTRUCTION 'A'", "_ 1 =       -1      0.050      0 ", "_ 2 =       -2      0.050 ",
          "_ 3 =       -3      0.000250   0 ", "_ 4 =       -4      0.050 ",
          "_ 5 =       -5      0.050 ", "_ 6 =       -6      0.050 ", "_ 7 =       -11      0.050 ",
          "_ 8 =      -12 0.050 ", "!END"});
    const LayerSlots& layers = project.constructions[1].layers;
    EXPECT_EQ(layers[1].name, "CAVITY Type 1 NORMAL");
    EXPECT_EQ(layers[2].name, "CAVITY type 2 Low-E");
    EXPECT_EQ(layers[3].name, "CAVITY Tyep 3 width = resistance");
    EXPECT_EQ(layers[3].thickness, 0.25);
    EXPECT_EQ(layers[4].name, "Unknown type -4");
    EXPECT_EQ(layers[4].conductivity, -4);
    EXPECT_EQ(layers[5].name, "CAVITY Type 5 Normal Ventilated");
    EXPECT_EQ(layers[6].name, "CAVITY Type 6 Low-E Ventilated");
    EXPECT_EQ(layers[7].name, "CAVITY Type 11 ISO15099");
    EXPECT_EQ(layers[8].name, "Unknown type -12");
    EXPECT_EQ(project.standardLibrary[4].name, "CAVITY Type 2 Low-E")
        << "the material list keeps its own spelling";
}

// The library and the reader spell the type 3 cavity differently, and so do the files.
TEST_F(ReadingAFile, ChangesTheSpellingOfANewCavityInTheNextSave) {
    NewConstruction(project, prompts);
    for (int number = 1; project.clipboard[1].materialCode != -3; ++number) {
        project.selectedMaterial = number;
        ASSERT_TRUE(TakeMaterial(project));
    }
    PasteLayers(project, prompts);
    const std::string saved = FormatConstructionFile(project);
    EXPECT_THAT(saved, HasSubstr("* CAVITY Type 3 width = resistance\r\n"));
    folder.Write("saved.con", saved);
    ReadConstructionFile(project, "saved.con", prompts);
    EXPECT_THAT(FormatConstructionFile(project),
                HasSubstr("* CAVITY Tyep 3 width = resistance\r\n"));
}

TEST_F(ReadingAFile, LeavesTheSlotOfANamelessMaterialEmptyUntilAnEdit) {
    folder.Write("stdmat.lby",
                 "12'FACE BRICK' 0.84 1700 800\n5'' 1 2 3\n30'PLASTER' 0.5 1300 1000\n");
    Read({"!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0", "_ 2 = 5 0.1 0", "_ 3 = 30 0.1 0", "!END"});
    const std::string untouched = FormatConstructionFile(project);
    EXPECT_THAT(untouched, HasSubstr("_ 3 =       30 "));
    SelectLine(project, 1, 1, {false, true});
    CopyLayers(project, prompts);
    ASSERT_TRUE(StartLayerDrag(project, 1, 1, false));
    EXPECT_EQ(FormatConstructionFile(project), untouched);
    DeleteLayers(project, prompts);
    EXPECT_EQ(LayerNames(project, 1), "FACE BRICK");
    PasteLayers(project, prompts);
    EXPECT_THAT(FormatConstructionFile(project), HasSubstr("_ 2 =       30 "));
}

TEST_F(ReadingAFile, LeavesALayerWhoseMaterialIsNotFound) {
    Read({"!CONSTRUCTION 'A'", "_ 1 = 99 0.1 0", "_ 2 = 0 0.1 0", "!END"});
    EXPECT_EQ(LayerNames(project, 1), "12");
    EXPECT_EQ(project.constructions[1].layers[1].conductivity, 0);
}

TEST_F(ReadingAFile, TakesTheLastOfSeveralMaterialsOfOneNumber) {
    folder.Write("stdmat.lby", "1'AAA' 1 2 3\n1'BBB' 4 5 6\n");
    Read({"!CONSTRUCTION 'A'", "_ 1 = 1 0.1 0", "!END"});
    EXPECT_EQ(LayerNames(project, 1), "BBB");
}

TEST_F(ReadingAFile, ReplacesEverythingOfTheFileBefore) {
    Read({"Head * head", "!MATERIALS USER FILE = 'user.lby' * user", "!CONSTRUCTION 'A' * a",
          "_ 1 =      @12      0.040      0 ", "!END", "!WINDOW = 'G' * g", "!END",
          "!WINDOW 2D = 'H'", "!END"});
    const unsigned before = project.constructions[1].window.opening;
    Read({"!CONSTRUCTION 'B'", "!END"});
    EXPECT_NE(project.constructions[1].window.opening, before) << "it gets a window of its own";
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_EQ(project.constructions[1].name, "B");
    EXPECT_EQ(LayerNames(project, 1), "");
    EXPECT_THAT(GlassTypeNames(project), IsEmpty());
    EXPECT_EQ(project.glassTypes2D[1].name, "");
    EXPECT_EQ(FormatConstructionFile(project),
              Lines({"!MATERIALS FILE = 'stdmat.lby'", "", "!CONSTRUCTION 'B'", "!TYPE OPAQUE",
                     "!PARTS", "!END", ""}));
}

TEST_F(ReadingAFile, TakesAnOldUserLibraryOutOfTheList) {
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!MATERIALS USER FILE = 'user.lby'"});
    Read({"!CONSTRUCTION 'B'", "!END"});
    EXPECT_FALSE(project.userLoaded);
    EXPECT_FALSE(project.userLibraryNeeded);
    EXPECT_EQ(project.userLibraryFile, "");
    EXPECT_EQ(MaterialCount(project.userLibrary), 0);
    EXPECT_EQ(project.shownLibrary, 1);
}

TEST_F(ReadingAFile, LeavesConstructionsAboveTheCountOpen) {
    for (int number = 1; number <= 3; ++number)
        AddConstruction(project, {"X"});
    RemoveConstruction(project, 1);
    Read({"!CONSTRUCTION 'A'", "!END"});
    EXPECT_FALSE(InUse(project, 2));
    EXPECT_EQ(project.constructionCount, 2);
    EXPECT_EQ(LayerNames(project, 3), "X");
    EXPECT_EQ(project.currentConstruction, 1) << "the last one read, not the one left over";
    EXPECT_THAT(FormatConstructionFile(project), HasSubstr("!CONSTRUCTION 'Construction 3'"));
}

TEST_F(ReadingAFile, ActivatesTheHighestConstructionLeftWhenNoneIsRead) {
    for (int number = 1; number <= 4; ++number)
        AddConstruction(project, {});
    RemoveConstruction(project, 1);
    RemoveConstruction(project, 2);
    ActivateConstruction(project, 3);
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!WINDOW = 'G'"});
    EXPECT_EQ(project.currentConstruction, 4);
    EXPECT_EQ(project.windowToActivate, 4);
}

TEST_F(ReadingAFile, ActivatesNothingWithoutAnyConstruction) {
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!WINDOW = 'G'"});
    EXPECT_EQ(project.windowToActivate, 0);
    EXPECT_EQ(project.constructionCount, 0);
}

TEST_F(ReadingAFile, FindsLibrariesBesideIt) {
    folder.Write("house/lib/Std.lby", standardLibraryBytes);
    folder.Write("house/house.con",
                 "!MATERIALS FILE = 'LIB\\std.LBY'\n!CONSTRUCTION 'A'\n_ 1 = 12 0.1 0\n");
    ReadConstructionFile(project, "house/house.con", prompts);
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_EQ(LayerNames(project, 1), "FACE BRICK");
    EXPECT_EQ(project.standardLibraryFile, "LIB\\std.LBY");
}

TEST_F(ReadingAFile, FailsWhereAConductivityFitsNo32BitFloat) {
    folder.Write("stdmat.lby", "1'AAA' 1e39 2 3\n");
    Read({"!CONSTRUCTION 'A'", "_ 1 = 1 0.1 0", "!END"});
    EXPECT_THAT(prompts.Texts(),
                ElementsAre("Command line error\rConstruction file (p) error 6 occurred."));
}

class OpenFile : public ReadingAFile {};

TEST_F(OpenFile, AsksForTheFile) {
    folder.Write("a.con", "!CONSTRUCTION 'A'\n!END\n");
    prompts.OpensFile("a.con");
    OpenProject(project, prompts);
    EXPECT_EQ(project.constructionFile, "a.con");
    EXPECT_EQ(project.constructions[1].name, "A");
    EXPECT_THAT(prompts.filePrompts,
                ElementsAre(FilePrompt{"Open Construction file", "Construction Files (*.con)|*.con",
                                       "", "CON"}));
}

TEST_F(OpenFile, StartsInTheFolderOfTheFileThatWasOpen) {
    folder.Write("house/a.con", "!MATERIALS FILE = 'stdmat.lby'\n");
    folder.Write("mine/user.lby", userLibraryBytes);
    ReadConstructionFile(project, "house/a.con", prompts);
    prompts.OpensFile("mine/user.lby").OpensFile("").OpensFile("");
    LoadMaterials(project, prompts);
    OpenProject(project, prompts);
    EXPECT_EQ(prompts.filePrompts.back().startFolder, "house");
    OpenProject(project, prompts);
    EXPECT_EQ(prompts.filePrompts.back().startFolder, "house") << "a cancel leaves it there";
}

TEST_F(OpenFile, StartsWhereAFileOfTheCommandLineOrADropLay) {
    folder.Write("house/a.con", "!MATERIALS FILE = 'stdmat.lby'\n");
    OpenDroppedFiles(project, {"house/a.con"}, prompts);
    NewProject(project, prompts);
    prompts.OpensFile("");
    OpenProject(project, prompts);
    EXPECT_EQ(prompts.filePrompts.back().startFolder, "house");
}

TEST_F(OpenFile, DoesNothingWhenTheUserKeepsTheChanges) {
    AddConstruction(project, {"A"});
    project.changed = true;
    prompts.Answers(Answer::no);
    OpenProject(project, prompts);
    EXPECT_THAT(prompts.filePrompts, IsEmpty());
    EXPECT_EQ(LayerNames(project, 1), "A");
}

TEST_F(OpenFile, HasEmptiedTheProjectBeforeThePromptIsCancelled) {
    Read({"!MATERIALS USER FILE = 'user.lby'", "!CONSTRUCTION 'A'", "!END"});
    prompts.OpensFile("");
    OpenProject(project, prompts);
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_EQ(project.constructionFile, "") << "untitled, not a file called blank";
    EXPECT_TRUE(project.userLoaded) << "the prompt comes before libraries are touched";
    EXPECT_EQ(project.userLibraryFile, "user.lby");
}

TEST_F(OpenFile, ReportsAFailureWithoutMentioningACommandLine) {
    prompts.OpensFile("missing.con");
    OpenProject(project, prompts);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{"Construction file (p) is missing.", ""}));
}

class DropFile : public ReadingAFile {};

TEST_F(DropFile, AsksNothingAboutChanges) {
    folder.Write("a.con", "!CONSTRUCTION 'A'\n!END\n");
    AddConstruction(project, {"X"});
    project.changed = true;
    OpenDroppedFiles(project, {"a.con"}, prompts);
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_EQ(project.constructions[1].name, "A");
    EXPECT_FALSE(project.changed);
}

TEST_F(DropFile, OpensExactlyOne) {
    AddConstruction(project, {"X"});
    OpenDroppedFiles(project, {"a.con", "b.con"}, prompts);
    OpenDroppedFiles(project, {}, prompts);
    OpenDroppedFiles(project, {""}, prompts);
    EXPECT_EQ(LayerNames(project, 1), "X");
    EXPECT_THAT(prompts.messages, IsEmpty());
}

TEST_F(DropFile, ReportsAFailureAsACommandLineError) {
    AddConstruction(project, {"X"});
    OpenDroppedFiles(project, {"missing.con"}, prompts);
    EXPECT_THAT(prompts.Texts(),
                ElementsAre("Command line error\rConstruction file (p) is missing."));
    EXPECT_EQ(project.constructionCount, 0) << "the old constructions are gone by then";
    EXPECT_TRUE(project.changed);
}

TEST(RemoveConstructionCommand, GoesByTheActiveWindow) {
    ScriptedPrompts prompts;
    Project project;
    AddConstruction(project, {"A"});
    AddConstruction(project, {"B"});
    CloseConstruction(project, 0);
    EXPECT_EQ(project.constructionCount, 2);
    CloseConstruction(project, 1);
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_FALSE(InUse(project, 1));
    EXPECT_EQ(project.constructions[1].type, removedType);
    EXPECT_EQ(project.currentConstruction, 2);
    EXPECT_TRUE(project.changed);
    EXPECT_THAT(prompts.messages, IsEmpty()) << "removing asks nothing";
}

TEST(RemoveConstructionCommand, LeavesTheCountAtZeroWhenRepeated) {
    ScriptedPrompts prompts;
    Project project;
    AddConstruction(project, {"A"});
    CloseConstruction(project, 1);
    CloseConstruction(project, 1);
    EXPECT_EQ(project.constructionCount, 0);
}

} // namespace
} // namespace strativo
