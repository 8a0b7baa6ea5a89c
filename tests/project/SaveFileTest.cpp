#include "edit/ConstructionSlots.h"
#include "project/FileCommands.h"
#include "support/Samples.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char wallBytes[] = "!MATERIALS FILE = ' '\r\n\r\n!CONSTRUCTION 'Construction 1'\r\n"
                             "!TYPE OPAQUE\r\n!PARTS\r\n"
                             "_ 1 =       1      0.100      0            * A\r\n!END\r\n\r\n";

/// A changed project with one construction, in a folder of its own.
class SaveFile : public testing::Test {
protected:
    SaveFile() {
        AddConstruction(project, {"A"});
        project.changed = true;
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(SaveFile, AsksForANameOnce) {
    prompts.SavesFile("a b \xe9.con");
    EXPECT_TRUE(SaveProject(project, prompts));
    EXPECT_EQ(project.constructionFile, "a b \xe9.con");
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(folder.Read("a b \xe9.con"), wallBytes);
    project.changed = true;
    EXPECT_TRUE(SaveProject(project, prompts));
    EXPECT_EQ(prompts.filePrompts.size(), 1U);
}

TEST_F(SaveFile, SaysUnderWhatNameAndWhere) {
    prompts.SavesFile("wall.con");
    EXPECT_TRUE(SaveProject(project, prompts));
    EXPECT_EQ(project.said, "Saved as wall.con");
    project.said.clear();
    prompts.SavesFile(folder.Path().string() + "/b\xC3\xA4r.con");
    EXPECT_TRUE(SaveProjectAs(project, prompts));
    EXPECT_EQ(project.said, "Saved as b\xC3\xA4r.con in " + folder.Path().string());
    project.said.clear();
    prompts.SavesFile("no folder/wall.con");
    EXPECT_FALSE(SaveProjectAs(project, prompts));
    EXPECT_EQ(project.said, "");
}

TEST_F(SaveFile, ByItsKeySaysWhyItDoesNothing) {
    prompts.SavesFile("wall.con");
    SaveProjectByKey(project, prompts);
    EXPECT_EQ(folder.Read("wall.con"), wallBytes);
    project.said.clear();
    project.constructions[1].name = "Renamed";
    SaveProjectByKey(project, prompts);
    EXPECT_EQ(folder.Read("wall.con"), wallBytes);
    EXPECT_EQ(project.said, "Nothing counts as changed: Save construction file as... saves all, "
                            "names, types and absorptions too");
    EXPECT_THAT(prompts.messages, IsEmpty());
}

TEST_F(SaveFile, WritesNothingWhenThePromptIsCancelled) {
    prompts.SavesFile("");
    EXPECT_FALSE(SaveProject(project, prompts));
    EXPECT_EQ(project.constructionFile, "");
    EXPECT_TRUE(project.changed);
    EXPECT_THAT(folder.Entries(), IsEmpty());
}

TEST_F(SaveFile, WritesNothingWhenACheckIsAnsweredNo) {
    project.constructions[1].layers.Edit(1).thickness = 0;
    project.constructionFile = "a.con";
    prompts.Answers(Answer::no);
    EXPECT_FALSE(SaveProject(project, prompts));
    EXPECT_TRUE(project.changed);
    EXPECT_THAT(folder.Entries(), IsEmpty());
}

TEST_F(SaveFile, WritesAZeroThicknessWhenTheCheckIsAnsweredYes) {
    project.constructions[1].layers.Edit(1).thickness = 0;
    project.constructionFile = "a.con";
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(SaveProject(project, prompts));
    EXPECT_NE(folder.Read("a.con").find("      0.000      0  "), std::string::npos);
}

TEST_F(SaveFile, ReportsAFailureAndKeepsNameAndChanges) {
    folder.Write("folder/x", "");
    project.constructionFile = "folder";
    EXPECT_FALSE(SaveProject(project, prompts));
    EXPECT_THAT(prompts.Texts(), ElementsAre("folder\nThe file was not saved: Is a directory"));
    EXPECT_EQ(prompts.messages[0].encoding, Encoding::utf8);
    EXPECT_EQ(project.constructionFile, "folder");
    EXPECT_TRUE(project.changed);
}

TEST_F(SaveFile, ForgetsANameUnderWhichNothingWasWritten) {
    prompts.SavesFile("missing \xe9/a.con");
    EXPECT_FALSE(SaveProject(project, prompts));
    EXPECT_THAT(prompts.Texts(), ElementsAre("missing \xc3\xa9/a.con\nThe file was not saved: "
                                             "No such file or directory"));
    EXPECT_EQ(project.constructionFile, "");
    EXPECT_TRUE(project.changed);
}

TEST_F(SaveFile, KeepsTheOldFileWhenThereIsNoRoomForTheNew) {
    project.constructionFile = folder.Write("a.con", "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{50, before.rlim_max};
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool saved = SaveProject(project, prompts);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(saved);
    EXPECT_TRUE(project.changed);
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_THAT(folder.Entries(), ElementsAre("a.con"));
    EXPECT_EQ(prompts.messages.size(), 1U);
}

TEST_F(SaveFile, SavesAsAnotherName) {
    project.constructionFile = folder.Write("old.con", "old");
    prompts.SavesFile("new.con");
    EXPECT_TRUE(SaveProjectAs(project, prompts));
    EXPECT_EQ(project.constructionFile, "new.con");
    EXPECT_EQ(folder.Read("new.con"), wallBytes);
    EXPECT_EQ(folder.Read("old.con"), "old");
    EXPECT_FALSE(project.changed);
    EXPECT_THAT(
        prompts.filePrompts,
        ElementsAre(FilePrompt{"Save Construction file as ", "Construction Files (*.con)|*.con",
                               "old.con", "CON", folder.Path().string()}));
}

TEST_F(SaveFile, KeepsTheOldNameWhenSavingAsIsCancelled) {
    project.constructionFile = "old.con";
    prompts.SavesFile("");
    EXPECT_FALSE(SaveProjectAs(project, prompts));
    EXPECT_EQ(project.constructionFile, "old.con");
    EXPECT_TRUE(project.changed);
}

TEST_F(SaveFile, KeepsTheOldNameWhenSavingAsIsRefusedByACheck) {
    project.constructionFile = "old.con";
    project.constructions[1].layers.Edit(1).thickness = 0;
    prompts.Answers(Answer::no);
    EXPECT_FALSE(SaveProjectAs(project, prompts));
    EXPECT_EQ(project.constructionFile, "old.con");
}

TEST_F(SaveFile, KeepsTheOldNameWhenSavingAsFails) {
    project.constructionFile = "old.con";
    prompts.SavesFile("/dev/full");
    EXPECT_FALSE(SaveProjectAs(project, prompts));
    EXPECT_EQ(project.constructionFile, "old.con");
    EXPECT_EQ(prompts.messages.size(), 1U);
}

TEST_F(SaveFile, WritesNoConstructionForTheSlotOfStartUp) {
    RemoveConstruction(project, 1);
    prompts.SavesFile("a.con");
    EXPECT_TRUE(SaveProject(project, prompts));
    EXPECT_EQ(folder.Read("a.con"), "!MATERIALS FILE = ' '\r\n\r\n");
}

class CloseProgram : public SaveFile {};

TEST_F(CloseProgram, AsksNothingWithoutChanges) {
    project.changed = false;
    EXPECT_FALSE(QueryClose(project, prompts));
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_EQ(prompts.Count("QuitHelp"), 1);
}

TEST_F(CloseProgram, ProposesToSaveAnUntitledProject) {
    prompts.Answers(Answer::cancel);
    EXPECT_TRUE(QueryClose(project, prompts));
    const Message question = {"Save changes to Untitled.con ?",
                              "Construction Have Changed",
                              Buttons::yesNoCancel,
                              Icon::question,
                              Answer::yes,
                              Encoding::utf8};
    EXPECT_THAT(prompts.messages, ElementsAre(question));
    EXPECT_EQ(prompts.Count("QuitHelp"), 0);
}

TEST_F(CloseProgram, NamesTheFile) {
    project.constructionFile = "/home/me/m\xe9 house.con";
    prompts.Answers(Answer::no);
    EXPECT_FALSE(QueryClose(project, prompts));
    EXPECT_EQ(prompts.messages[0].text, "Save changes to /home/me/m\xc3\xa9 house.con ?");
    EXPECT_EQ(prompts.Count("QuitHelp"), 1);
    EXPECT_TRUE(project.changed);
}

TEST_F(CloseProgram, GoesAheadAfterSaving) {
    prompts.Answers(Answer::yes).SavesFile("a.con");
    EXPECT_FALSE(QueryClose(project, prompts));
    EXPECT_EQ(folder.Read("a.con"), wallBytes);
    EXPECT_EQ(prompts.Count("QuitHelp"), 1);
}

TEST_F(CloseProgram, IsCancelledWithTheSavePrompt) {
    prompts.Answers(Answer::yes).SavesFile("");
    EXPECT_TRUE(QueryClose(project, prompts));
    EXPECT_EQ(prompts.Count("QuitHelp"), 0);
}

TEST_F(CloseProgram, IsCancelledWhenANamedFileWasNotWritten) {
    project.constructionFile = "/dev/full";
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(QueryClose(project, prompts)) << "otherwise everything would be lost";
}

TEST_F(CloseProgram, IsCancelledWhenASaveCheckIsAnsweredNo) {
    project.constructionFile = "a.con";
    project.constructions[1].layers.Edit(1).thickness = 0;
    prompts.Answers(Answer::yes).Answers(Answer::no);
    EXPECT_TRUE(QueryClose(project, prompts));
    EXPECT_THAT(folder.Entries(), IsEmpty());
}

} // namespace
} // namespace strativo
