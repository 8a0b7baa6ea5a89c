#include "files/FileAccess.h"
#include "files/ProjectSnapshot.h"
#include "project/RecoveryStore.h"
#include "robustness/FaultyRun.h"
#include "support/Samples.h"
#include "support/TestProject.h"

#include <cerrno>
#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// A copy of unsaved work is written while system calls fail.
class RecoveryFaults : public testing::Test {
protected:
    RecoveryFaults() { Prepare(); }

    void Prepare() {
        for (const std::string& folder : folders)
            std::filesystem::remove_all(folder);
        work.Write("stdmat.lby", standardLibraryBytes);
        work.Write("wall.con", original);
    }

    FaultyRun Run(const std::string& command, const std::string& faults) {
        Prepare();
        return RunWithFaults(command, "wall.con", faults);
    }

    /// What the next start finds: the names of the first constructions of all copies. One that
    /// cannot be read throws.
    std::vector<std::string> Found() const {
        std::vector<std::string> names;
        for (const LeftCopy& copy : FindLeftCopies(folders)) {
            Project read;
            ReadSnapshot(ReadFileBytes(copy.path), read);
            names.push_back(read.constructions[1].name);
        }
        return names;
    }

    TemporaryFolder work;
    const std::vector<std::string> folders = {(work.Path() / "copies").string(),
                                              (work.Path() / "more-copies").string()};
    const std::string original =
        Lines({"!MATERIALS FILE = 'stdmat.lby'", "!CONSTRUCTION 'WALL'", "!TYPE OPAQUE", "!PARTS",
               "_ 1 =       12      0.100      0            * FACE BRICK", "!END", ""});
};

class EachCopy : public RecoveryFaults, public testing::WithParamInterface<const char*> {
protected:
    int Calls() {
        const FaultyRun run = Run(GetParam(), "");
        EXPECT_EQ(run.Value("kept"), "1");
        EXPECT_THAT(Found(), ElementsAre("later"));
        return static_cast<int>(run.calls.size()) - run.Count("made"); // that is no call
    }
};

TEST_P(EachCopy, IsWholeAfterACallOfAnyNumberFails) {
    const int calls = Calls();
    ASSERT_GT(calls, 5);
    for (const int error : {EIO, ENOSPC, EACCES})
        for (int n = 1; n <= calls; ++n) {
            const std::string effect = "errno=" + std::to_string(error);
            const FaultyRun run = Run(GetParam(), "*:" + std::to_string(n) + ":" + effect);
            EXPECT_TRUE(run.Hit(effect)) << n;
            EXPECT_EQ(run.Value("kept"), "1") << n; // there is another folder
            EXPECT_THAT(Found(), Contains("later")) << n;
            EXPECT_EQ(work.Read("wall.con"), original);
        }
}

TEST_P(EachCopy, IsTheOldOrTheNewOneAfterAKillAtACallOfAnyNumber) {
    const int calls = Calls();
    for (int n = 1; n <= calls; ++n)
        for (const std::string effect : {"kill", "torn"}) {
            const FaultyRun run = Run(GetParam(), "*:" + std::to_string(n) + ":" + effect);
            EXPECT_TRUE(run.Hit(effect)) << n;
            const std::vector<std::string> found = Found();
            if (std::string(GetParam()) == "keep-again")
                EXPECT_THAT(found, Contains(AnyOf("earlier", "later"))) << n;
            else if (!run.killed)
                EXPECT_THAT(found, ElementsAre("later")) << n;
            else
                EXPECT_THAT(found, AnyOf(IsEmpty(), ElementsAre("later"))) << n;
            EXPECT_EQ(work.Read("wall.con"), original);
        }
}

TEST_P(EachCopy, IsToldWhenNothingCanBeWrittenAndAnOlderOneStays) {
    const FaultyRun run = Run(GetParam(), "write:1:errno=28:always");
    EXPECT_TRUE(run.Hit("errno=28"));
    EXPECT_EQ(run.Value("kept"), "0");
    if (std::string(GetParam()) == "keep-again")
        EXPECT_THAT(Found(), ElementsAre("earlier"));
    else
        EXPECT_THAT(Found(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(OfAProject, EachCopy, testing::Values("keep", "keep-again"));

TEST_F(RecoveryFaults, ACopyReplacesAnOlderOneWithFewCalls) {
    const FaultyRun run = Run("keep-again", "");
    EXPECT_EQ(run.Count("fsync"), 2); // the copy and its folder
    EXPECT_EQ(run.Count("rename"), 1);
    EXPECT_THAT(run.calls, Not(IsEmpty()));
}

} // namespace
} // namespace strativo
