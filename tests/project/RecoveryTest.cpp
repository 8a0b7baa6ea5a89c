#include "project/Recovery.h"

#include "files/FileAccess.h"
#include "project/FileCommands.h"
#include "project/ReadConstructionFile.h"
#include "support/TestProject.h"

#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr char original[] = "!MATERIALS FILE = 'stdmat.lby'\r\n!CONSTRUCTION 'Wall'\r\n"
                            "!TYPE OPAQUE\r\n!PARTS\r\n"
                            "_ 1 =       1      0.100      0            * BRICK\r\n!END\r\n";

/// A project read from a file, with an unsaved change of a thickness.
class Recovery : public testing::Test {
protected:
    Recovery() {
        work.Write("stdmat.lby", "1'BRICK' 0.84 1700 800\r\n");
        file = work.Write("a b.con", original);
        copies = (work.Path() / "state").string();
        ReadConstructionFile(project, file, prompts);
        project.constructions[1].layers.Edit(1).thickness = 215;
        project.changed = true;
    }

    std::vector<std::string> Copies() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(copies))
            names.push_back(entry.path().filename().string());
        return names;
    }

    TemporaryFolder work;
    ScriptedPrompts prompts;
    Project project;
    std::string file;
    std::string copies;
};

TEST_F(Recovery, KeepsNothingOfAnUnchangedProject) {
    project.changed = false;
    EXPECT_EQ(KeepRecoveryCopy(project, copies), "");
    EXPECT_FALSE(std::filesystem::exists(copies));
}

TEST_F(Recovery, OpensTheCopyUnderItsOldNameWithTheChange) {
    ASSERT_NE(KeepRecoveryCopy(project, copies), "");
    ScriptedPrompts next;
    Project reopened;
    next.Answers(Answer::yes);
    EXPECT_TRUE(OfferRecovery(reopened, copies, next));
    EXPECT_EQ(reopened.constructionFile, file);
    EXPECT_TRUE(reopened.changed);
    EXPECT_EQ(reopened.constructions[1].layers[1].thickness, 215);
    EXPECT_EQ(reopened.constructions[1].layers[1].name, "BRICK");
    EXPECT_THAT(next.messages[0].text, HasSubstr(file));
    EXPECT_EQ(work.Read("a b.con"), original);
    EXPECT_TRUE(SaveProject(reopened, next));
    EXPECT_THAT(work.Read("a b.con"), HasSubstr("0.215"));
}

TEST_F(Recovery, OffersACopyOnlyOnceAndKeepsItWhenRefused) {
    KeepRecoveryCopy(project, copies);
    ScriptedPrompts next;
    Project other;
    next.Answers(Answer::no);
    EXPECT_FALSE(OfferRecovery(other, copies, next));
    EXPECT_EQ(other.constructionCount, 0);
    EXPECT_FALSE(OfferRecovery(other, copies, next));
    EXPECT_EQ(next.messages.size(), 1U);
    EXPECT_THAT(Copies(), ElementsAre(StartsWith("offered-")));
}

TEST_F(Recovery, SavingNoticesThatTheOriginalWasChangedMeanwhile) {
    KeepRecoveryCopy(project, copies);
    work.Write("a b.con", "somebody else's work, longer than before: 1234567890\r\n");
    ScriptedPrompts next;
    Project reopened;
    next.Answers(Answer::yes).Answers(Answer::no);
    OfferRecovery(reopened, copies, next);
    EXPECT_FALSE(SaveProject(reopened, next));
    EXPECT_THAT(work.Read("a b.con"), StartsWith("somebody else's work"));
}

TEST_F(Recovery, NamesAProjectThatNeverHadAFileUntitled) {
    project.constructionFile.clear();
    KeepRecoveryCopy(project, copies);
    ScriptedPrompts next;
    Project reopened;
    next.Answers(Answer::yes);
    EXPECT_TRUE(OfferRecovery(reopened, copies, next));
    EXPECT_EQ(reopened.constructionFile, "");
    EXPECT_TRUE(reopened.changed);
    EXPECT_THAT(next.messages[0].text, HasSubstr("Untitled.con"));
}

TEST_F(Recovery, ALaterCopyOfTheSameProcessReplacesTheFirst) {
    KeepRecoveryCopy(project, copies);
    project.constructions[1].layers.Edit(1).thickness = 330;
    const std::string path = KeepRecoveryCopy(project, copies);
    EXPECT_THAT(Copies(), ElementsAre(StartsWith("recovery-")));
    EXPECT_THAT(ReadFileBytes(path), HasSubstr("0.330"));
}

TEST_F(Recovery, TheCopyOfAProgramThatWentOnAndWasClosedIsNotOffered) {
    DropRecoveryCopy(copies); // there is none
    KeepRecoveryCopy(project, copies);
    DropRecoveryCopy(copies);
    EXPECT_THAT(Copies(), IsEmpty());
}

TEST_F(Recovery, TheCopyKeepsItsNameUntilTheProcessHasEnded) {
    static std::function<void()> keep;
    keep = [this] { KeepRecoveryCopy(project, copies); };
    const auto endAfterACopy = [this] {
        std::atexit([] { keep(); });
        keep();
        work.Write("state/" + Copies().at(0), "replaced by the copy made last");
        std::exit(0);
    };
    EXPECT_EXIT(endAfterACopy(), testing::ExitedWithCode(0), "");
    ASSERT_THAT(Copies(), ElementsAre(StartsWith("recovery-")));
    EXPECT_THAT(work.Read("state/" + Copies()[0]), HasSubstr("0.215"));
}

TEST_F(Recovery, SaysNothingWhereNoCopyWaits) {
    ScriptedPrompts next;
    Project other;
    EXPECT_FALSE(OfferRecovery(other, copies, next));
    EXPECT_THAT(next.messages, IsEmpty());
}

TEST_F(Recovery, IsNoFailureWhereTheFolderCannotBeMade) {
    work.Write("state", "a file where the folder should be");
    EXPECT_EQ(KeepRecoveryCopy(project, copies), "");
}

TEST_F(Recovery, AFragmentThatReadingLeftHasNoNameToBeSavedUnder) {
    const std::string broken =
        work.Write("broken.con", "!CONSTRUCTION 'A'\r\n!CONSTRUCTION 'Broken\r\n");
    ReadConstructionFile(project, broken, prompts);
    EXPECT_EQ(project.constructionFile, "");
}

TEST(RecoveryFolder, FollowsTheStateDirectoryOfTheUser) {
    setenv("XDG_STATE_HOME", "/somewhere/state", 1);
    EXPECT_EQ(RecoveryFolder(), "/somewhere/state/strativo");
    unsetenv("XDG_STATE_HOME");
    setenv("HOME", "/home/user", 1);
    EXPECT_EQ(RecoveryFolder(), "/home/user/.local/state/strativo");
}

} // namespace
} // namespace strativo
