#include "desktop/ProgramStory.h"
#include "desktop/SessionManager.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>

namespace strativo {

/// Stories of a program that ends with changes that nobody saved.
class RecoveryStory : public ProgramStory {
protected:
    RecoveryStory() {
        setenv("XDG_STATE_HOME", (folder.Path() / "state").c_str(), 1);
        folder.Write("work/wall.con", original);
    }
    ~RecoveryStory() override { unsetenv("XDG_STATE_HOME"); }

    void StartAndChange() {
        Start({"wall.con"});
        WaitForActive(mainTitle);
        Press(Key::home);
        Press(Key::del);
    }

    void ExpectTheChangeIsOffered() { ExpectIsOffered(changed); }

    void ExpectIsOffered(const std::string& bytes) {
        EXPECT_EQ(folder.Read("work/wall.con"), original);
        Start();
        WaitForActive("Recovered project");
        Press({Key::alt, KeyOf('y')});
        WaitForActive(mainTitle);
        Press({Key::alt, KeyOf('f')});
        Press(KeyOf('s'));
        WaitForFile("wall.con", bytes);
        Quit();
    }

    void ExpectNothingIsOffered() {
        Start();
        WaitForActive(mainTitle);
        Quit();
    }

    void Quit() {
        Press({Key::alt, Key::f4});
        EXPECT_EQ(program->ExitStatus(patience), 0);
    }

    unsigned long MainWindow() const {
        for (const WindowOnScreen& found : Screen().Windows())
            if (found.title == mainTitle)
                return found.id;
        return 0;
    }

    const std::string original = Pair({Plaster(1)}, {Block(1), Plaster(2)});
    const std::string changed = Pair({Plaster(1)}, {Plaster(1)});
};

class CrashStory : public RecoveryStory, public testing::WithParamInterface<int> {};

TEST_P(CrashStory, KeepsTheChangesAndOffersThemOnce) {
    StartAndChange();
    program->Signal(GetParam());
    EXPECT_EQ(program->ExitStatus(patience), std::nullopt);
    EXPECT_FALSE(program->IsRunning());
    ExpectTheChangeIsOffered();
    ExpectNothingIsOffered();
}

INSTANTIATE_TEST_SUITE_P(Signals, CrashStory,
                         testing::Values(SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT));

class EndRequestStory : public RecoveryStory, public testing::WithParamInterface<int> {};

TEST_P(EndRequestStory, EndsTheProgramWithoutAQuestionAndKeepsTheChanges) {
    StartAndChange();
    program->Signal(GetParam());
    EXPECT_EQ(program->ExitStatus(patience), 0);
    ExpectTheChangeIsOffered();
}

INSTANTIATE_TEST_SUITE_P(Signals, EndRequestStory, testing::Values(SIGTERM, SIGHUP, SIGINT));

TEST_F(RecoveryStory, ALostDisplayKeepsTheChanges) {
    StartAndChange();
    Screen().CutOff(MainWindow());
    EXPECT_NE(program->ExitStatus(patience), std::nullopt);
    ExpectTheChangeIsOffered();
}

TEST_F(RecoveryStory, ALogOutKeepsTheChanges) {
    SessionManager session;
    StartAndChange();
    ASSERT_TRUE(session.PrepareLogOut());
    program->Signal(SIGKILL); // a session does not wait for programs that take their time
    EXPECT_EQ(program->ExitStatus(patience), std::nullopt);
    ExpectTheChangeIsOffered();
    ExpectNothingIsOffered();
}

TEST_F(RecoveryStory, AfterALogOutThatIsCancelledSavedWorkIsNotOffered) {
    SessionManager session;
    StartAndChange();
    ASSERT_TRUE(session.PrepareLogOut());
    session.CancelLogOut();
    Press({Key::alt, KeyOf('f')});
    Press(KeyOf('s'));
    WaitForFile("wall.con", changed);
    WaitFor("the copy's end", [&] { return std::filesystem::is_empty("../state/strativo"); });
    program->Signal(SIGKILL);
    EXPECT_EQ(program->ExitStatus(patience), std::nullopt);
    ExpectNothingIsOffered();
}

TEST_F(RecoveryStory, AfterALogOutThatIsCancelledALostDisplayKeepsTheLatestChange) {
    SessionManager session;
    StartAndChange();
    ASSERT_TRUE(session.PrepareLogOut());
    session.CancelLogOut();
    Press(Key::del);
    Screen().CutOff(MainWindow());
    EXPECT_NE(program->ExitStatus(patience), std::nullopt);
    ExpectIsOffered(Pair({Plaster(1)}, {}));
}

TEST_F(RecoveryStory, AProgramWithoutChangesKeepsNothing) {
    Start({"wall.con"});
    WaitForActive(mainTitle);
    program->Signal(SIGSEGV);
    EXPECT_EQ(program->ExitStatus(patience), std::nullopt);
    ExpectNothingIsOffered();
}

} // namespace strativo
