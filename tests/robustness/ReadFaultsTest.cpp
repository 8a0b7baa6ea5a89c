#include "robustness/FaultyRun.h"
#include "support/Samples.h"
#include "support/TestProject.h"

#include <cerrno>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string wall =
    Lines({"!CONSTRUCTION 'WALL'", "!TYPE OPAQUE", "!PARTS",
           "_ 1 =       12      0.100      0            * FACE BRICK", "!END", ""});
/// A file of two constructions, with its middle between them.
const std::string fileBytes = wall + wall;

class ReadFaults : public testing::Test {
protected:
    ReadFaults() {
        folder.Write("stdmat.lby", standardLibraryBytes);
        Restore();
    }

    void Restore() { folder.Write("house.con", fileBytes); }

    FaultyRun Read(const std::string& faults, const std::string& file = "house.con") {
        return RunWithFaults("read", file, faults);
    }

    static std::string Fault(const std::string& call, int number, int error) {
        return call + ":" + std::to_string(number) + ":errno=" + std::to_string(error);
    }

    static std::string Message(int number) {
        return "Command line error|Construction file (p) error " + std::to_string(number)
               + " occurred.";
    }

    void ExpectRead(const FaultyRun& run, int constructions) {
        EXPECT_THAT(run.All("message"), IsEmpty());
        EXPECT_EQ(run.Value("constructions"), std::to_string(constructions));
        EXPECT_EQ(run.Value("file"), "house.con");
    }

    /// A file that could not be read is not the project's, so that it is not saved over.
    void ExpectRefused(const FaultyRun& run, const std::string& message) {
        EXPECT_THAT(run.All("message"), ElementsAre(message));
        EXPECT_EQ(run.Value("constructions"), "0");
        EXPECT_EQ(run.All("file"), std::vector<std::string>{""});
    }

    TemporaryFolder folder;
};

TEST_F(ReadFaults, TheCallsOfReadingAreSeen) {
    const FaultyRun run = Read("");
    ExpectRead(run, 2);
    EXPECT_GE(run.Count("open"), 2) << "the file and its library";
    EXPECT_GE(run.Count("fstat"), 2);
    EXPECT_GE(run.Count("read"), 4) << "of each file its bytes and its end";
    EXPECT_EQ(run.Count("close"), run.Count("open"));
}

TEST_F(ReadFaults, AFileThatCannotBeOpenedIsReportedByNumber) {
    const std::pair<int, int> numbers[] = {{EACCES, 70}, {EPERM, 70},  {EMFILE, 67}, {ENFILE, 67},
                                           {EIO, 57},    {ENODEV, 68}, {EISDIR, 75}};
    for (const auto& [error, number] : numbers)
        if (number == 68)
            ExpectRefused(Read(Fault("open", 1, error)),
                          "Command line error|Construction file (p). Drive not available.");
        else
            ExpectRefused(Read(Fault("open", 1, error)), Message(number));
}

TEST_F(ReadFaults, AFileThatCannotBeLookedAtIsAnIoError) {
    ExpectRefused(Read(Fault("fstat", 1, EIO)), Message(57));
}

TEST_F(ReadFaults, AnErrorAtAnyReadIsAnIoError) {
    ExpectRefused(Read(Fault("read", 1, EIO)), Message(57));
    ExpectRefused(Read("read:1:short;" + Fault("read", 2, EIO)), Message(57));
    ExpectRefused(Read("read:1:short:always;" + Fault("read", 5, EIO)), Message(57));
}

TEST_F(ReadFaults, ShortAndInterruptedReadsAreRepeated) {
    ExpectRead(Read("read:1:short"), 2);
    ExpectRead(Read("read:1:short:always"), 2);
    ExpectRead(Read(Fault("read", 1, EINTR)), 2);
}

TEST_F(ReadFaults, AFileCutWhileItIsReadGivesWhatIsLeft) {
    const FaultyRun run = Read("read:1:shrink");
    EXPECT_TRUE(run.Hit("shrink"));
    EXPECT_EQ(folder.Read("house.con"), wall);
    ExpectRead(run, 1);
}

TEST_F(ReadFaults, AFileThatEndsBeforeItsSizeIsReadAgain) {
    const FaultyRun run = Read("read:1:short;read:2:zero");
    EXPECT_TRUE(run.Hit("zero"));
    ExpectRead(run, 2);
}

TEST_F(ReadFaults, AFileThatEndsBeforeItsSizeAgainAndAgainIsRefused) {
    const FaultyRun run = Read("read:1:shrink:always");
    EXPECT_TRUE(run.Hit("shrink"));
    ExpectRefused(run, Message(57));
}

TEST_F(ReadFaults, AFileThatGrowsWhileItIsReadIsReadToItsNewEnd) {
    const FaultyRun run = Read("read:1:grow");
    EXPECT_TRUE(run.Hit("grow"));
    ExpectRead(run, 3);
    Restore();
    // A save must not silently overwrite what was added after the bytes already read.
    const FaultyRun late = Read("read:2:grow");
    EXPECT_TRUE(late.Hit("grow"));
    ExpectRead(late, 3);
}

TEST_F(ReadFaults, NoFaultOfAnyCallCrashesOrHangs) {
    const int calls = static_cast<int>(Read("").calls.size());
    for (int number = 1; number <= calls; ++number)
        for (const char* always : {"", ":always"}) {
            const std::string fault = Fault("*", number, EIO) + always;
            SCOPED_TRACE(fault);
            const FaultyRun run = Read(fault);
            EXPECT_TRUE(run.Hit("errno=" + std::to_string(EIO)));
            EXPECT_EQ(folder.Read("house.con"), fileBytes);
            // Either everything was read, or a message says what was not.
            EXPECT_TRUE(!run.All("message").empty() || run.Value("constructions") == "2");
        }
}

TEST_F(ReadFaults, WhatIsNoRegularFileIsRefusedAtOnce) {
    ASSERT_EQ(mkfifo("pipe.con", 0600), 0);
    ASSERT_EQ(mkdir("folder.con", 0700), 0);
    for (const char* path : {"pipe.con", "folder.con", "/dev/zero", "/dev/null", "/dev/tty"}) {
        SCOPED_TRACE(path);
        const FaultyRun run = Read("", path);
        if (std::string(path) != "/dev/tty") // which cannot even be opened without a terminal
            ExpectRefused(run, Message(75));
        EXPECT_EQ(run.Value("constructions"), "0");
    }
}

} // namespace
} // namespace strativo
