#include "project/FileCommands.h"
#include "project/ReadConstructionFile.h"
#include "support/TestProject.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

constexpr char smallFile[] = "!CONSTRUCTION 'Wall'\r\n!TYPE OPAQUE\r\n!PARTS\r\n!END\r\n";

/// A project read from a.con in a folder of its own.
class FileOnDisk : public testing::Test {
protected:
    FileOnDisk() {
        folder.Write("stdmat.lby", "1'BRICK' 0.84 1700 800\r\n");
        project.rememberedLibrary = "stdmat.lby";
        file = folder.Write("a.con", smallFile);
        ReadConstructionFile(project, file, prompts);
        project.changed = true;
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
    std::string file;
};

TEST_F(FileOnDisk, IsWrittenWithoutAQuestionWhileNobodyElseTouchedIt) {
    EXPECT_TRUE(SaveProject(project, prompts));
    project.changed = true;
    EXPECT_TRUE(SaveProject(project, prompts));
    EXPECT_THAT(prompts.messages, testing::IsEmpty());
}

TEST_F(FileOnDisk, ChangedByAnotherProgramIsLeftAloneOnNo) {
    folder.Write("a.con", "somebody else's work\r\n");
    prompts.Answers(Answer::no);
    EXPECT_FALSE(SaveProject(project, prompts));
    EXPECT_EQ(folder.Read("a.con"), "somebody else's work\r\n");
    EXPECT_TRUE(project.changed);
    EXPECT_EQ(project.constructionFile, file);
    EXPECT_THAT(prompts.messages[0].text, testing::HasSubstr(file));
}

TEST_F(FileOnDisk, ChangedByAnotherProgramIsOverwrittenOnYes) {
    folder.Write("a.con", "somebody else's work\r\n");
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(SaveProject(project, prompts));
    EXPECT_THAT(folder.Read("a.con"), testing::HasSubstr("!CONSTRUCTION 'Wall'"));
    EXPECT_FALSE(project.changed);
}

TEST_F(FileOnDisk, DeletedByAnotherProgramIsWrittenAnewWithoutAQuestion) {
    std::filesystem::remove(file);
    EXPECT_TRUE(SaveProject(project, prompts));
    EXPECT_THAT(folder.Read("a.con"), testing::HasSubstr("!CONSTRUCTION 'Wall'"));
}

TEST_F(FileOnDisk, SavedUnderAnotherNameAsksNothingOfItsOwn) {
    folder.Write("a.con", "somebody else's work\r\n");
    prompts.SavesFile("b.con");
    EXPECT_TRUE(SaveProjectAs(project, prompts));
    EXPECT_EQ(folder.Read("a.con"), "somebody else's work\r\n");
}

} // namespace
} // namespace strativo
