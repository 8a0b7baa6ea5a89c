#include "project/SaveDrawing.h"

#include "files/FileMessages.h"
#include "support/TestProject.h"

#include <cerrno>
#include <cstring>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool foldersFail = false;

bool IsFolder(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

/// In the place of the system's own: a disk that fails once the file itself is on it.
extern "C" int fsync(int descriptor) {
    if (foldersFail && IsFolder(descriptor)) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

namespace strativo {
namespace {

TEST(SaveDrawing, WritesTheFileThatIsChosen) {
    const TemporaryFolder folder;
    Project project;
    ScriptedPrompts prompts;
    prompts.SavesFile("wall.svg");
    EXPECT_TRUE(SaveDrawing(project, "wall.svg", "<svg/>\n", prompts));
    EXPECT_EQ(folder.Read("wall.svg"), "<svg/>\n");
    EXPECT_EQ(project.said, "Section saved as wall.svg");
}

TEST(SaveDrawing, SuggestsANameBesideTheConstructionFile) {
    const TemporaryFolder folder;
    Project project;
    project.constructionFile = folder.Write("house/house.con", "");
    ScriptedPrompts prompts;
    prompts.SavesFile("");
    SaveDrawing(project, "wall.svg", "<svg/>\n", prompts);
    ASSERT_EQ(prompts.filePrompts.size(), 1U);
    EXPECT_EQ(prompts.filePrompts[0].initialName, "wall.svg");
    EXPECT_EQ(prompts.filePrompts[0].startFolder, (folder.Path() / "house").string());
}

TEST(SaveDrawing, SaysThatALossOfPowerMayUndoIt) {
    const TemporaryFolder folder;
    Project project;
    ScriptedPrompts prompts;
    prompts.SavesFile("wall.svg");
    foldersFail = true;
    EXPECT_TRUE(SaveDrawing(project, "wall.svg", "<svg/>\n", prompts));
    foldersFail = false;
    EXPECT_EQ(folder.Read("wall.svg"), "<svg/>\n");
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text,
              std::string("wall.svg\n") + savedButNotSafe + std::strerror(EIO));
}

TEST(SaveDrawing, WritesNothingWhenThePromptIsCancelled) {
    const TemporaryFolder folder;
    Project project;
    ScriptedPrompts prompts;
    prompts.SavesFile("");
    EXPECT_FALSE(SaveDrawing(project, "wall.svg", "<svg/>\n", prompts));
    EXPECT_THAT(folder.Entries(), testing::IsEmpty());
}

TEST(SaveDrawing, SaysWhyItCouldNotBeWritten) {
    const TemporaryFolder folder;
    Project project;
    ScriptedPrompts prompts;
    prompts.SavesFile("missing/wall.svg");
    EXPECT_FALSE(SaveDrawing(project, "wall.svg", "<svg/>\n", prompts));
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_THAT(prompts.messages[0].text,
                testing::StartsWith("missing/wall.svg\nThe drawing was not saved: "));
}

} // namespace
} // namespace strativo
