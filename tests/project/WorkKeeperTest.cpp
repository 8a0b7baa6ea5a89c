#include "project/WorkKeeper.h"

#include "files/FileAccess.h"
#include "project/FileCommands.h"
#include "project/NewProject.h"
#include "project/ReadConstructionFile.h"
#include "support/NoThreads.h"
#include "support/TestProject.h"

#include <gmock/gmock.h>
#include <thread>

namespace strativo {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr CopySchedule::Clock::time_point start{std::chrono::hours(1)};

constexpr char original[] = "!MATERIALS FILE = 'stdmat.lby'\r\n!CONSTRUCTION 'Wall'\r\n"
                            "!TYPE OPAQUE\r\n!PARTS\r\n"
                            "_ 1 =       1      0.100      0            * BRICK\r\n!END\r\n";

/// A project read from a file, and who keeps work on it.
class KeptWork : public testing::Test {
protected:
    KeptWork() {
        work.Write("stdmat.lby", "1'BRICK' 0.84 1700 800\r\n");
        file = work.Write("a b.con", original);
        ReadConstructionFile(project, file, prompts);
        Look(0);
    }

    std::optional<milliseconds> Look(int ms) {
        return keeper->Look(project, start + milliseconds(ms));
    }
    /// The same until nothing is being written.
    void LookUntilWritten(int ms) {
        const auto patience = CopySchedule::Clock::now() + std::chrono::seconds(20);
        while (Look(ms) == milliseconds(100) && CopySchedule::Clock::now() < patience)
            std::this_thread::sleep_for(milliseconds(1));
    }
    void Rename(const std::string& name) { project.constructions[1].name = name; }

    /// Names of the constructions of all copies that there are, running programs or not.
    std::vector<std::string> Copies() const {
        std::vector<std::string> names;
        for (const std::string& folder : folders) {
            if (!std::filesystem::is_directory(folder))
                continue;
            for (const auto& entry : std::filesystem::directory_iterator(folder)) {
                if (entry.path().extension() != ".copy")
                    continue;
                Project read;
                ReadSnapshot(ReadFileBytes(entry.path().string()), read);
                names.push_back(read.constructions[1].name);
            }
        }
        return names;
    }

    TemporaryFolder work;
    ScriptedPrompts prompts;
    const std::vector<std::string> folders = {(work.Path() / "copies").string()};
    Project project;
    std::string file;
    std::unique_ptr<WorkKeeper> keeper = std::make_unique<WorkKeeper>(folders, KeepIntervals());
};

TEST_F(KeptWork, NothingIsWrittenOfAProjectAsItsFileIs) {
    EXPECT_EQ(Look(100), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(folders[0]));
}

TEST_F(KeptWork, ARenamedConstructionIsKeptAlthoughItCountsAsNoChange) {
    Rename("O'Brien's wall * old !EOF");
    EXPECT_EQ(Look(100), milliseconds(2000));
    EXPECT_THAT(Copies(), IsEmpty());
    LookUntilWritten(2100);
    EXPECT_THAT(Copies(), ElementsAre("O'Brien's wall * old !EOF"));
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(Look(9000), std::nullopt);
}

TEST_F(KeptWork, EachSuchEditIsTold) {
    Rename("x");
    Look(100);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::onlySaveAs);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::none);
    Look(200);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::none);
    Rename("y");
    Look(300);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::onlySaveAs);
    project.changed = true;
    Rename("z");
    Look(400);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::none);
}

TEST_F(KeptWork, EditsInARowAreWrittenAfterTenSeconds) {
    for (int ms = 0; ms < 10000; ms += 1000) {
        Rename(std::to_string(ms));
        Look(ms);
    }
    EXPECT_THAT(Copies(), IsEmpty());
    LookUntilWritten(10000);
    EXPECT_THAT(Copies(), ElementsAre("9000"));
}

TEST_F(KeptWork, LookingAroundDelaysNothing) {
    Rename("x");
    Look(0);
    project.constructions[1].currentLayer = 0;
    EXPECT_EQ(Look(1500), milliseconds(500));
}

TEST_F(KeptWork, TheCopyGoesWhenTheContentIsThatOfTheFileAgain) {
    Rename("x");
    Look(0);
    LookUntilWritten(2000);
    ASSERT_THAT(Copies(), SizeIs(1));
    Rename("Wall");
    Look(2100);
    EXPECT_THAT(Copies(), IsEmpty());
}

TEST_F(KeptWork, TheCopyGoesWhenTheWorkIsSaved) {
    Rename("x");
    Look(0);
    LookUntilWritten(2000);
    ASSERT_TRUE(SaveProject(project, prompts));
    EXPECT_TRUE(keeper->IsUnsettled(project));
    Look(2100);
    EXPECT_FALSE(keeper->IsUnsettled(project));
    EXPECT_THAT(Copies(), IsEmpty());
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::onlySaveAs); // of the edit
}

TEST_F(KeptWork, AProgramThatMayBeEndedKeepsItAtOnce) {
    Rename("x");
    keeper->KeepNow(project);
    EXPECT_THAT(Copies(), ElementsAre("x"));
    Rename("y");
    keeper->KeepNow(project);
    EXPECT_THAT(Copies(), ElementsAre("y"));
    Rename("Wall");
    keeper->KeepNow(project);
    EXPECT_THAT(Copies(), IsEmpty());
}

TEST_F(KeptWork, AProjectThatIsReplacedWithoutAQuestionIsLeftForTheNextStart) {
    Rename("x");
    keeper->ExpectReplacement(project, false);
    OpenDroppedFiles(project, {file}, prompts);
    Look(0);
    keeper->EndExpectation();
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::left);
    EXPECT_THAT(Copies(), ElementsAre("x"));
    Rename("y");
    keeper->KeepNow(project);
    EXPECT_THAT(Copies(), testing::UnorderedElementsAre("x", "y"));
    keeper->GiveUp();
    EXPECT_THAT(Copies(), ElementsAre("x"));
}

TEST_F(KeptWork, AProjectGivenUpAtTheQuestionIsNotLeft) {
    Rename("x");
    project.changed = true;
    keeper->ExpectReplacement(project, AsksAboutChanges(project));
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(NewProject(project, prompts));
    Look(0);
    keeper->EndExpectation();
    EXPECT_THAT(Copies(), IsEmpty());
    EXPECT_EQ(Look(100), std::nullopt);
}

TEST_F(KeptWork, AProjectThatTheQuestionSparedKeepsItsCopy) {
    Rename("x");
    project.changed = true;
    keeper->ExpectReplacement(project, AsksAboutChanges(project));
    prompts.Answers(Answer::no);
    EXPECT_FALSE(NewProject(project, prompts));
    LookUntilWritten(0);
    keeper->EndExpectation();
    EXPECT_THAT(Copies(), ElementsAre("x"));
}

TEST_F(KeptWork, GlassTypesAloneAreNotAskedAboutAndKept) {
    project.changed = false;
    NewProject(project, prompts);
    Look(0);
    project.glassTypes[1].name = "CLEAR";
    project.changed = true;
    keeper->ExpectReplacement(project, AsksAboutChanges(project));
    EXPECT_TRUE(NewProject(project, prompts));
    Look(100);
    EXPECT_THAT(Copies(), SizeIs(1));
}

TEST_F(KeptWork, NothingIsWrittenOfAProjectThatIsHalfRead) {
    Rename("x");
    project.replacingContent = true;
    EXPECT_NE(Look(0), std::nullopt);
    keeper->KeepNow(project);
    EXPECT_THAT(Copies(), IsEmpty());
}

TEST_F(KeptWork, ALibraryAloneIsNoWork) {
    project.changed = false;
    NewProject(project, prompts);
    Look(0);
    project.standardLibraryFile = "other.lby";
    EXPECT_EQ(Look(100), std::nullopt);
    keeper->KeepNow(project);
    EXPECT_THAT(Copies(), IsEmpty());
}

TEST_F(KeptWork, WhereNoFolderTakesACopyThatIsToldOnceAndTriedAgain) {
    work.Write("copies", "a file where the folder should be");
    Rename("x");
    project.changed = true;
    Look(0);
    LookUntilWritten(2000);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::notKept);
    EXPECT_EQ(TextOf(KeepNotice::notKept),
              "Unsaved work is not being kept: no folder takes a copy of it");
    LookUntilWritten(4000);
    LookUntilWritten(6000);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::none);
    std::filesystem::remove(folders[0]);
    LookUntilWritten(8000);
    LookUntilWritten(10000);
    EXPECT_THAT(Copies(), ElementsAre("x"));
}

TEST_F(KeptWork, IsKeptWhereNoThreadCanBeStarted) {
    const NoThreads noThreads;
    Rename("x");
    Look(0);
    Look(2000);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::onlySaveAs);
    EXPECT_THAT(Copies(), ElementsAre("x"));
    Rename("y");
    keeper->KeepNow(project);
    EXPECT_THAT(Copies(), ElementsAre("y"));
}

TEST_F(KeptWork, IsOfTheSameFileWhenTheWorkingFolderIsGone) {
    const std::filesystem::path folder = work.Path() / "deleted";
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
    keeper = std::make_unique<WorkKeeper>(folders, KeepIntervals());
    Look(0);
    project.constructionFile = "a b.con";
    Rename("x");
    std::filesystem::remove(folder);
    keeper->KeepNow(project);
    std::filesystem::current_path(work.Path());
    keeper.reset();
    const std::vector<LeftCopy> left = FindLeftCopies(folders);
    ASSERT_THAT(left, SizeIs(1));
    Project read;
    EXPECT_EQ(ReadSnapshot(ReadFileBytes(left[0].path), read).originalPath,
              (folder / "a b.con").string());
}

TEST_F(KeptWork, ACopyTakenOverStaysUntilTheWorkIsSaved) {
    Rename("x");
    keeper->KeepNow(project);
    keeper.reset(); // that program ends
    const std::vector<LeftCopy> left = FindLeftCopies(folders);
    ASSERT_THAT(left, SizeIs(1));
    keeper = std::make_unique<WorkKeeper>(folders, KeepIntervals());
    const SnapshotHead head = ReadSnapshot(ReadFileBytes(left[0].path), project);
    EXPECT_EQ(head.originalPath, file);
    EXPECT_EQ(head.standardLibraryPath, (work.Path() / "stdmat.lby").string());
    keeper->TakeOver(left[0], head, project);
    EXPECT_EQ(Look(0), std::nullopt);
    EXPECT_THAT(Copies(), ElementsAre("x"));
    ASSERT_TRUE(SaveProject(project, prompts));
    Look(100);
    EXPECT_THAT(Copies(), IsEmpty());
}

} // namespace
} // namespace strativo
