#include "MainWindowTest.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"
#include "ui/WorkWatch.h"

#include <QLineEdit>
#include <QStatusBar>

#include <cstdlib>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The main window and the copies of unsaved work.
class KeptWorkInWindow : public MainWindowTest {
protected:
    KeptWorkInWindow() { setenv("STRATIVO_KEEP_INTERVALS", "200,1000", 1); }
    ~KeptWorkInWindow() override { unsetenv("STRATIVO_KEEP_INTERVALS"); }

    void StartWithAName(const char* name) {
        Start();
        Choose("NewUValue");
        EnterName(name);
    }
    void EnterName(const char* name) {
        Press(Qt::Key_C, Qt::AltModifier);
        Find<QLineEdit>(1, "NameText")->selectAll();
        Type(name);
        Press(Qt::Key_Return);
    }
    int Copies() const {
        const std::filesystem::path copies = folder.Path() / "state/strativo/recovery";
        int count = 0;
        if (std::filesystem::exists(copies))
            for (const auto& entry : std::filesystem::directory_iterator(copies))
                count += entry.path().extension() == ".copy" ? 1 : 0;
        return count;
    }
    bool WaitForCopies(int count) {
        return QTest::qWaitFor([&] { return Copies() == count; }, 20000);
    }
    /// Ends the program without any clean-up, as if it were killed, and starts it again.
    void StartAgain(const std::string& commandLine = "") {
        program.reset();
        QTimer::singleShot(0, qApp, [] { QApplication::exit(0); });
        QApplication::exec();
        Start(commandLine);
    }
    std::string Told() const { return program->statusBar()->currentMessage().toStdString(); }
};

TEST_F(KeptWorkInWindow, ANameAloneIsKeptAndSaidToBe) {
    StartWithAName("O'Brien's wall");
    EXPECT_FALSE(TheProject().changed);
    EXPECT_TRUE(WaitForCopies(1));
    EXPECT_EQ(Told(), "This does not count as a change: Save construction file as... keeps it");
    EXPECT_FALSE(IsEnabled("SaveProject"));
}

TEST_F(KeptWorkInWindow, TheCopyGoesWhenTheWorkIsSaved) {
    StartWithAName("Wall");
    EXPECT_TRUE(WaitForCopies(1));
    ChooseFile((folder.Path() / "wall.con").string());
    Choose("SaveProjectAs");
    EXPECT_TRUE(WaitForCopies(0));
}

TEST_F(KeptWorkInWindow, TheCopyIsOfTheWorkAsItIsAfterStepsTakenBack) {
    StartWithAName("Wall");
    Insert("PLASTER");
    ClickLine(List(1), 0);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(WaitForCopies(1));
    QTest::qWait(1200);
    Answer("Yes");
    StartAgain();
    EXPECT_EQ(LayersShown(1), std::vector<std::string>{"PLASTER"});
}

TEST_F(KeptWorkInWindow, TheCopyGoesWhenAllWasTakenBack) {
    StartWithAName("Wall");
    EXPECT_TRUE(WaitForCopies(1));
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(TheProject().constructionCount, 0);
    EXPECT_TRUE(WaitForCopies(0));
}

TEST_F(KeptWorkInWindow, WorkIsOfferedAtTheNextStartAndOpensWithItsWindows) {
    StartWithAName("O'Brien's wall");
    Insert("PLASTER");
    EXPECT_TRUE(WaitForCopies(1));
    QTest::qWait(1200); // the layer too
    Answer("Yes");
    StartAgain();
    EXPECT_EQ(LastBox().title, "Recovered project");
    EXPECT_THAT(LastBox().text, HasSubstr("with 1 construction."));
    EXPECT_THAT(LastBox().buttons, testing::UnorderedElementsAre("Yes", "No", "Cancel"));
    EXPECT_EQ(TextOf(1, "NameText"), "O'Brien's wall");
    EXPECT_THAT(LayersShown(1), ElementsAre("PLASTER"));
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_EQ(Materials()->count(), 9);
    EXPECT_TRUE(IsEnabled("SaveProject"));
    EXPECT_EQ(StatusText("ChangedStatus"), "* unsaved changes");
}

TEST_F(KeptWorkInWindow, WorkOpensWithItsMaterialsInTheOrderThatTheyHad) {
    Start();
    Choose("NewUValue");
    Choose("CondSort");
    const std::string first = Materials()->item(0)->text().toStdString();
    EnterName("Wall");
    EXPECT_TRUE(WaitForCopies(1));
    Answer("Yes");
    StartAgain();
    EXPECT_EQ(Materials()->item(0)->text().toStdString(), first);
}

TEST_F(KeptWorkInWindow, OpenedWorkThatIsGivenUpAtTheCloseIsNotOfferedAgain) {
    StartWithAName("Wall");
    EXPECT_TRUE(WaitForCopies(1));
    Answer("Yes");
    StartAgain();
    Answer("No");
    EXPECT_TRUE(program->close());
    EXPECT_EQ(boxes.back().title, "Construction Have Changed");
    EXPECT_EQ(Copies(), 0);
}

TEST_F(KeptWorkInWindow, ClosingWithoutAQuestionKeepsIt) {
    StartWithAName("Wall");
    EXPECT_TRUE(program->close());
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(Copies(), 1);
}

TEST_F(KeptWorkInWindow, AProjectReplacedWithoutAQuestionWaitsForTheNextStart) {
    StartWithAName("Wall");
    Choose("NewProject");
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return Told() == "The work that was not saved is kept, and offered at the next start";
    }));
    EXPECT_EQ(Copies(), 1);
    EXPECT_EQ(TheProject().constructionCount, 0);
}

TEST_F(KeptWorkInWindow, AProjectGivenUpAtTheQuestionDoesNot) {
    StartWithAName("Wall");
    Insert("PLASTER");
    EXPECT_TRUE(WaitForCopies(1));
    Answer("Yes");
    Choose("NewProject");
    EXPECT_TRUE(WaitForCopies(0));
}

TEST_F(KeptWorkInWindow, ARequestToEndKeepsItAtOnce) {
    unsetenv("STRATIVO_KEEP_INTERVALS");
    StartWithAName("Wall");
    EXPECT_EQ(Copies(), 0);
    program->EndByRequest();
    EXPECT_EQ(Copies(), 1);
}

TEST_F(KeptWorkInWindow, ASessionThatMayEndKeepsItAtOnceAndTheProgramGoesOn) {
    unsetenv("STRATIVO_KEEP_INTERVALS");
    StartWithAName("Wall");
    program->KeepWork();
    EXPECT_EQ(Copies(), 1);
    EXPECT_FALSE(program->HasEnded());
}

TEST_F(KeptWorkInWindow, AStartWithAnotherFileSaysThatWorkWaits) {
    StartWithAName("Wall");
    EXPECT_TRUE(program->close());
    StartAgain(folder.Write("other.con", "!MATERIALS FILE = '" + library
                                             + "'\r\n!CONSTRUCTION 'Roof'\r\n!END\r\n"));
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(Told(),
              "Unsaved work on Untitled.con is kept, and offered at a start without a file");
    EXPECT_EQ(TheProject().constructions[1].name, "Roof");
}

TEST_F(KeptWorkInWindow, WhereNoFolderTakesACopyTheStatusBarSaysSo) {
    const std::string blocked = folder.Write("blocked", "no folder");
    for (const char* variable : {"XDG_STATE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
        setenv(variable, blocked.c_str(), 1);
    StartWithAName("Wall");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return Told() == "Unsaved work is not being kept: no folder takes a copy of it"; }));
    unsetenv("XDG_RUNTIME_DIR");
    unsetenv("TMPDIR");
}

} // namespace
} // namespace strativo
