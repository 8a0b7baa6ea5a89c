#include "project/Recovery.h"

#include "files/FileAccess.h"
#include "project/FileCommands.h"
#include "project/ReadConstructionFile.h"
#include "support/TestProject.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr char original[] = "!MATERIALS FILE = 'stdmat.lby'\r\n!CONSTRUCTION 'Wall'\r\n"
                            "!TYPE OPAQUE\r\n!PARTS\r\n"
                            "_ 1 =       1      0.100      0            * BRICK\r\n!END\r\n";

/// A project read from a file, changed in a way that no construction file could hold.
class Recovery : public testing::Test {
protected:
    Recovery() {
        work.Write("stdmat.lby", "1'BRICK' 0.84 1700 800\r\n");
        file = work.Write("a b.con", original);
        ReadConstructionFile(project, file, prompts);
        project.constructions[1].name = name;
        project.constructions[1].layers.Edit(1).thickness = 215;
    }

    /// A program ends in which the project was changed to what it is now.
    void Keep() {
        WorkKeeper ending(folders, KeepIntervals());
        Project before = project;
        before.constructions[1].name = "before";
        ending.KeepNow(before);
        ending.KeepNow(project);
    }

    RecoveryResult Offer(const std::string& commandLine = "") {
        keeper = std::make_unique<WorkKeeper>(folders, KeepIntervals());
        return OfferRecovery(next, *keeper, commandLine, nextPrompts);
    }

    std::vector<std::string> Kept() const {
        std::vector<std::string> names;
        if (std::filesystem::exists(folders[0]))
            for (const auto& entry : std::filesystem::directory_iterator(folders[0]))
                if (entry.path().extension() != ".lock")
                    names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    TemporaryFolder work;
    const std::vector<std::string> folders = {(work.Path() / "copies").string()};
    const std::string name = "O'Brien's wall * old\n!EOF";
    ScriptedPrompts prompts;
    Project project;
    std::string file;
    ScriptedPrompts nextPrompts;
    Project next;
    std::unique_ptr<WorkKeeper> keeper;
};

TEST_F(Recovery, TellsWhatWhenAndHowManyConstructions) {
    Keep();
    nextPrompts.Answers(Answer::cancel);
    Offer();
    const std::string text = nextPrompts.messages.at(0).text;
    EXPECT_THAT(text, StartsWith("Strativo ended before the changes to this file were saved:\n"
                                 + file + "\n\nA copy of 20"));
    EXPECT_THAT(text, HasSubstr(" was kept, with 1 construction.  Do you wish to open it?"));
    EXPECT_EQ(nextPrompts.messages[0].title, "Recovered project");
    EXPECT_EQ(nextPrompts.messages[0].buttons, Buttons::yesNoCancel);
}

TEST_F(Recovery, OpensTheWorkUnderItsOldNameWithoutReadingALibrary) {
    Keep();
    std::filesystem::remove("stdmat.lby");
    nextPrompts.Answers(Answer::yes);
    EXPECT_TRUE(Offer().opened);
    EXPECT_THAT(nextPrompts.filePrompts, IsEmpty());
    EXPECT_THAT(nextPrompts.messages, SizeIs(1));
    EXPECT_EQ(next.constructionFile, file);
    EXPECT_TRUE(next.changed);
    EXPECT_EQ(next.constructions[1].name, name);
    EXPECT_EQ(next.constructions[1].layers[1].thickness, 215);
    EXPECT_EQ(next.standardLibrary[1].name, "BRICK");
    EXPECT_EQ(next.standardLibraryFile, "stdmat.lby");
    EXPECT_EQ(work.Read("a b.con"), original);
}

TEST_F(Recovery, TheCopyGoesOnlyWhenTheWorkIsSaved) {
    project.constructions[1].name = "Wall";
    Keep();
    nextPrompts.Answers(Answer::yes);
    Offer();
    keeper->KeepNow(next);
    EXPECT_THAT(Kept(), ElementsAre(EndsWith(".copy")));
    EXPECT_TRUE(SaveProject(next, nextPrompts));
    keeper->KeepNow(next);
    EXPECT_THAT(Kept(), IsEmpty());
    EXPECT_THAT(work.Read("a b.con"), HasSubstr("0.215"));
}

TEST_F(Recovery, OpenedWorkThatIsReplacedWithoutAQuestionIsOfferedAgain) {
    Keep();
    nextPrompts.Answers(Answer::yes).Answers(Answer::cancel);
    Offer();
    keeper->ExpectReplacement(next, false);
    OpenDroppedFiles(next, {file}, nextPrompts);
    keeper->KeepNow(next);
    EXPECT_EQ(keeper->TakeNotice(), KeepNotice::left);
    keeper.reset();
    Offer();
    EXPECT_THAT(nextPrompts.messages, SizeIs(2));
}

TEST_F(Recovery, RefusedWorkIsSetAsideAndNotOfferedAgain) {
    Keep();
    nextPrompts.Answers(Answer::no);
    EXPECT_FALSE(Offer().opened);
    EXPECT_EQ(next.constructionCount, 0);
    EXPECT_FALSE(Offer().opened);
    EXPECT_THAT(nextPrompts.messages, SizeIs(1));
    EXPECT_THAT(Kept(), ElementsAre(EndsWith(".refused")));
}

TEST_F(Recovery, WorkWithoutAnAnswerIsOfferedAgain) {
    Keep();
    nextPrompts.Answers(Answer::cancel).Answers(Answer::cancel);
    EXPECT_FALSE(Offer().opened);
    EXPECT_FALSE(Offer().opened);
    EXPECT_THAT(nextPrompts.messages, SizeIs(2));
}

TEST_F(Recovery, TheNextOneIsOfferedWhenOneIsRefused) {
    Keep();
    Keep();
    nextPrompts.Answers(Answer::no).Answers(Answer::yes);
    EXPECT_TRUE(Offer().opened);
    EXPECT_THAT(Kept(), SizeIs(2));
}

TEST_F(Recovery, AStartWithAnotherFileLeavesItAndSaysSo) {
    Keep();
    const RecoveryResult result = Offer(work.Write("other.con", original));
    EXPECT_FALSE(result.opened);
    EXPECT_EQ(result.notice,
              "Unsaved work on " + file + " is kept, and offered at a start without a file");
    EXPECT_THAT(nextPrompts.messages, IsEmpty());
    EXPECT_THAT(Kept(), ElementsAre(EndsWith(".copy")));
}

TEST_F(Recovery, AStartWithTheFileItselfAsksFirst) {
    Keep();
    std::filesystem::create_symlink(file, "link.con");
    nextPrompts.Answers(Answer::cancel).Answers(Answer::cancel).Answers(Answer::yes);
    Offer("a b.con");
    Offer("link.con");
    EXPECT_TRUE(Offer("./sub/../a b.con").opened);
    EXPECT_EQ(next.constructions[1].name, name);
}

TEST_F(Recovery, AFileThatIsGoneIsStillKnownByItsName) {
    Keep();
    std::filesystem::remove(file);
    nextPrompts.Answers(Answer::yes);
    EXPECT_TRUE(Offer("a b.con").opened);
}

TEST_F(Recovery, SavingNoticesThatTheOriginalWasChangedMeanwhile) {
    project.constructions[1].name = "Wall";
    Keep();
    work.Write("a b.con", "somebody else's work, longer than before: 1234567890\r\n");
    nextPrompts.Answers(Answer::yes).Answers(Answer::no);
    Offer();
    EXPECT_FALSE(SaveProject(next, nextPrompts));
    EXPECT_THAT(work.Read("a b.con"), StartsWith("somebody else's work"));
}

TEST_F(Recovery, NamesAProjectThatNeverHadAFileUntitled) {
    project.constructionFile.clear();
    Keep();
    nextPrompts.Answers(Answer::yes);
    EXPECT_TRUE(Offer().opened);
    EXPECT_THAT(nextPrompts.messages[0].text, HasSubstr("\nUntitled.con\n"));
    EXPECT_EQ(next.constructionFile, "");
}

TEST_F(Recovery, ADamagedCopyIsToldAndKept) {
    Keep();
    const std::string copy = Kept().at(0);
    std::string bytes = work.Read("copies/" + copy);
    bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
    work.Write("copies/" + copy, bytes);
    EXPECT_FALSE(Offer().opened);
    EXPECT_THAT(nextPrompts.Texts().at(0),
                StartsWith("A copy of unsaved work cannot be opened: its bytes are not those that "
                           "were written.\nIt stays here:\n"
                           + folders[0]));
    EXPECT_THAT(Kept(), ElementsAre(EndsWith(".damaged")));
    EXPECT_FALSE(Offer().opened);
    EXPECT_THAT(nextPrompts.messages, SizeIs(1));
}

TEST_F(Recovery, SaysNothingWhereNoCopyWaits) {
    EXPECT_FALSE(Offer().opened);
    EXPECT_THAT(nextPrompts.messages, IsEmpty());
}

TEST_F(Recovery, SettingsAndClipboardAreThoseOfTheProgramThatOpensIt) {
    Keep();
    next.helpFile = "help.html";
    next.clipboard[1].name = "CLIPPED";
    nextPrompts.Answers(Answer::yes);
    Offer();
    EXPECT_EQ(next.helpFile, "help.html");
    EXPECT_EQ(next.clipboard[1].name, "CLIPPED");
}

TEST_F(Recovery, AFragmentThatReadingLeftHasNoNameToBeSavedUnder) {
    const std::string broken =
        work.Write("broken.con", "!CONSTRUCTION 'A'\r\n!CONSTRUCTION 'Broken\r\n");
    ReadConstructionFile(project, broken, prompts);
    EXPECT_EQ(project.constructionFile, "");
}

} // namespace
} // namespace strativo
