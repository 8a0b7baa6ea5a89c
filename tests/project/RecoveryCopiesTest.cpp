#include "project/NewProject.h"
#include "project/Recovery.h"
#include "support/Samples.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A folder of copies that hold something else than the program would have written.
class RecoveryCopies : public testing::Test {
protected:
    RecoveryCopies() { project.standardLoaded = true; }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(RecoveryCopies, ThatCannotBeReadAreNotOfferedTwice) {
    folder.Write("recovery-1.con/x", "");
    folder.Write("recovery-2.txt", "");
    folder.Write("other.con", "");
    EXPECT_FALSE(OfferRecovery(project, folder.Path().string(), prompts));
    EXPECT_THAT(folder.Entries(), ElementsAre("offered-1.con", "other.con", "recovery-2.txt"));
    EXPECT_THAT(prompts.messages, IsEmpty());
}

TEST_F(RecoveryCopies, WithoutTheirFirstLineAreUntitled) {
    folder.Write("recovery-1.con", "!CONSTRUCTION 'A'\r\n!END\r\n");
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(OfferRecovery(project, folder.Path().string(), prompts));
    EXPECT_THAT(prompts.messages[0].text, HasSubstr("Untitled.con"));
    EXPECT_EQ(project.constructions[1].name, "A");
    EXPECT_EQ(project.constructionFile, "");
}

TEST_F(RecoveryCopies, ThatCannotBeRenamedAreOfferedInTheirPlace) {
    folder.Write("recovery-1.con", "!CONSTRUCTION 'A'\r\n!END\r\n");
    folder.Write("offered-1.con/x", "");
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(OfferRecovery(project, folder.Path().string(), prompts));
    EXPECT_EQ(project.constructions[1].name, "A");
}

TEST(RecoveryFolder, IsInTheHomeFolderForAnEmptyStateDirectory) {
    setenv("XDG_STATE_HOME", "", 1);
    setenv("HOME", "/home/user", 1);
    EXPECT_EQ(RecoveryFolder(), "/home/user/.local/state/strativo");
    unsetenv("HOME");
    EXPECT_EQ(RecoveryFolder(), "/.local/state/strativo");
}

} // namespace
} // namespace strativo
