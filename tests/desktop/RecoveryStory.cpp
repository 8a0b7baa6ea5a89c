#include "desktop/ProgramStory.h"
#include "desktop/SessionManager.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>

namespace strativo {

/// Stories of a program that ends with unsaved changes.
class RecoveryStory : public ProgramStory {
protected:
    RecoveryStory() {
        setenv("XDG_STATE_HOME", (folder.Path() / "state").c_str(), 1);
        setenv("STRATIVO_KEEP_INTERVALS", "200,1000", 1);
        folder.Write("work/wall.con", original);
    }
    ~RecoveryStory() override {
        unsetenv("XDG_STATE_HOME");
        unsetenv("STRATIVO_KEEP_INTERVALS");
    }

    void StartAndChange() {
        Start({"wall.con"});
        WaitForActive(mainTitle);
        Press(Key::home);
        Press(Key::del);
    }

    int Copies() const {
        const std::filesystem::path copies = folder.Path() / "state/strativo/recovery";
        if (!std::filesystem::exists(copies))
            return 0;
        const std::filesystem::directory_iterator entries(copies);
        return static_cast<int>(std::count_if(begin(entries), end(entries), [](const auto& entry) {
            return entry.path().extension() == ".copy";
        }));
    }

    void WaitForCopy() {
        WaitFor("the copy", [this] { return Copies() == 1; });
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

TEST_P(CrashStory, TakesNothingOfWhatWasDoneASecondAgo) {
    StartAndChange();
    WaitForCopy();
    program->Signal(GetParam());
    if (program->ExitStatus(std::chrono::seconds(2)) == std::nullopt && program->IsRunning()) {
        program->Signal(SIGKILL); // there are signals that the program does not end by
        program->ExitStatus(patience);
    }
    EXPECT_FALSE(program->IsRunning());
    ExpectTheChangeIsOffered();
    ExpectNothingIsOffered();
}

INSTANTIATE_TEST_SUITE_P(Signals, CrashStory,
                         testing::Values(SIGQUIT, SIGILL, SIGTRAP, SIGABRT, SIGBUS, SIGFPE, SIGKILL,
                                         SIGUSR1, SIGSEGV, SIGUSR2, SIGALRM, SIGSTKFLT, SIGXCPU,
                                         SIGXFSZ, SIGVTALRM, SIGPROF));

class SpoiltHeapStory : public RecoveryStory, public testing::WithParamInterface<char> {};

TEST_P(SpoiltHeapStory, TakesNothingOfWhatWasDoneASecondAgo) {
    StartAndChange();
    WaitForCopy();
    program->SpoilHeap(GetParam());
    try {
        Press(Key::down);
    } catch (const std::runtime_error&) {
        // Locks lie in the heap too: waiting for one, the program hangs until its user ends it.
        program->Signal(SIGKILL);
    }
    EXPECT_EQ(program->ExitStatus(patience), std::nullopt);
    EXPECT_FALSE(program->IsRunning());
    ExpectTheChangeIsOffered();
}

INSTANTIATE_TEST_SUITE_P(Bytes, SpoiltHeapStory,
                         testing::Values('\0', '\x01', 'A', '\x80', '\xFF'));

class EndRequestStory : public RecoveryStory, public testing::WithParamInterface<int> {};

TEST_P(EndRequestStory, EndsTheProgramWithoutAQuestionAndKeepsTheChanges) {
    StartAndChange();
    program->Signal(GetParam());
    EXPECT_EQ(program->ExitStatus(patience), 0);
    ExpectTheChangeIsOffered();
}

INSTANTIATE_TEST_SUITE_P(Signals, EndRequestStory, testing::Values(SIGTERM, SIGHUP, SIGINT));

TEST_F(RecoveryStory, ALostDisplayTakesNothingOfWhatWasDoneASecondAgo) {
    StartAndChange();
    WaitForCopy();
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
    WaitFor("the copy's end", [this] { return Copies() == 0; });
    program->Signal(SIGKILL);
    EXPECT_EQ(program->ExitStatus(patience), std::nullopt);
    ExpectNothingIsOffered();
}

TEST_F(RecoveryStory, WorkIsOfferedAgainUntilTheQuestionIsAnswered) {
    StartAndChange();
    WaitForCopy();
    program->Signal(SIGKILL);
    program->ExitStatus(patience);
    for (const int ending : {SIGKILL, SIGTERM}) {
        Start();
        WaitForActive("Recovered project");
        program->Signal(ending);
        program->ExitStatus(patience);
    }
    ExpectTheChangeIsOffered();
    ExpectNothingIsOffered();
}

TEST_F(RecoveryStory, RefusedWorkIsNotOfferedAgain) {
    StartAndChange();
    program->Signal(SIGTERM);
    EXPECT_EQ(program->ExitStatus(patience), 0);
    Start();
    WaitForActive("Recovered project");
    Press({Key::alt, KeyOf('n')});
    WaitForActive(mainTitle);
    Quit();
    ExpectNothingIsOffered();
}

TEST_F(RecoveryStory, AStartWithAnotherFileDoesNotAsk) {
    StartAndChange();
    program->Signal(SIGTERM);
    EXPECT_EQ(program->ExitStatus(patience), 0);
    folder.Write("work/other.con", original);
    Start({"other.con"});
    WaitForActive(mainTitle);
    Quit();
    ExpectTheChangeIsOffered();
}

TEST_F(RecoveryStory, AProgramWithoutChangesKeepsNothing) {
    Start({"wall.con"});
    WaitForActive(mainTitle);
    program->Signal(SIGTERM);
    EXPECT_EQ(program->ExitStatus(patience), 0);
    EXPECT_EQ(Copies(), 0);
    ExpectNothingIsOffered();
}

} // namespace strativo
