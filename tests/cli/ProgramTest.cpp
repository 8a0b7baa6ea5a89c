#include "cli/CommandRun.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace strativo {
namespace {

namespace fs = std::filesystem;

constexpr char commandLineError[] = "Command line error Construction file (p) ";

class Program : public CliTest {
protected:
    Program() {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("a.con", WallFile({}));
    }

    static void ExpectResult(const RunResult& result, int status, const std::string& out,
                             const std::string& err) {
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err, err);
    }

    const std::string wallText = "Construction 1  Wall  (Opaque)\n"
                                 "  Indicative Uvalue W/Cm2  n/a\n";
};

TEST_F(Program, ShowsTheSampleFile) {
    ExpectResult(RunProgram({"show", std::string(STRATIVO_SOURCE) + "/data/examples/house.con"}), 0,
                 SourceFile("tests/golden/cli/house.txt"), "");
}

TEST_F(Program, ReportsAMissingFile) {
    ExpectResult(RunProgram({"show", "gone.con"}), 3, "",
                 std::string("strativo-cli: gone.con: ") + commandLineError + "is missing.\n");
}

TEST_F(Program, ReportsAMissingFolder) {
    ExpectResult(RunProgram({"show", "gone/a.con"}), 3, "",
                 "strativo-cli: gone/a.con: Command line error Construction file (p). "
                 "That path doesn't exist.\n");
}

TEST_F(Program, ReportsAFolder) {
    fs::create_directory("folder.con");
    ExpectResult(RunProgram({"check", "folder.con"}), 3, "",
                 std::string("strativo-cli: folder.con: ") + commandLineError
                     + "error 75 occurred.\n");
}

TEST_F(Program, DoesNotHangOnAFifo) {
    ASSERT_EQ(mkfifo("fifo.con", 0600), 0);
    ExpectResult(RunProgram({"show", "fifo.con"}), 3, "",
                 std::string("strativo-cli: fifo.con: ") + commandLineError
                     + "error 75 occurred.\n");
    ExpectResult(RunProgram({"rewrite", "a.con", "fifo.con"}), 3, "",
                 "strativo-cli: a.con: fifo.con The file was not saved: "
                 "It is not a regular file\n");
}

TEST_F(Program, ReportsAFileThatTheUserMayNotRead) {
    fs::permissions(".", fs::perms::owner_all | fs::perms::others_all);
    fs::permissions("a.con", fs::perms::none);
    ExpectResult(RunProgram({"show", "a.con"}, {.asNobody = true}), 3, "",
                 std::string("strativo-cli: a.con: ") + commandLineError + "error 70 occurred.\n");
}

TEST_F(Program, LeavesAFileThatTheUserMayNotReplaceAsItWas) {
    folder.Write("out.con", "as it was");
    fs::permissions(".", fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    for (const char* name : {"a.con", "std.lby", "out.con"})
        fs::permissions(name, fs::perms::owner_read | fs::perms::others_read);
    const RunResult result = RunProgram({"rewrite", "a.con", "out.con"}, {.asNobody = true});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err,
                testing::StartsWith("strativo-cli: a.con: out.con The file was not saved: "));
    EXPECT_EQ(folder.Read("out.con"), "as it was");
}

TEST_F(Program, TakesPathsWithBlanksAndBytesAbove127) {
    for (const char* name : {"two  words.con", "d\xC3\xA4mmung.con", "d\xE4mmung.con"}) {
        folder.Write(name, WallFile({}));
        ExpectResult(RunProgram({"show", name}), 0, wallText, "");
    }
    ExpectResult(RunProgram({"rewrite", "two  words.con", "neue \xE4.con"}), 0, "", "");
    EXPECT_EQ(RunProgram({"show", "neue \xE4.con"}).out, wallText);
    ExpectResult(RunProgram({"show", "fort \xE4.con"}), 3, "",
                 std::string("strativo-cli: fort \xC3\xA4.con: ") + commandLineError
                     + "is missing.\n");
}

TEST_F(Program, RefusesWrongUsage) {
    ExpectResult(RunProgram({"rewrite", "a.con"}), 2, "",
                 "strativo-cli: rewrite takes FILE.con OUT.con\n"
                 "Usage: strativo-cli [OPTIONS] rewrite FILE.con OUT.con\n");
}

TEST_F(Program, ChecksFiles) {
    ExpectResult(RunProgram({"check", "a.con"}), 1,
                 "a.con: no-layers: Construction 1 \"Wall\": no layers\n", "");
}

TEST_F(Program, GoesOnAfterAFileThatCannotBeRead) {
    ExpectResult(RunProgram({"show", "gone.con", "a.con"}), 3, wallText,
                 std::string("strativo-cli: gone.con: ") + commandLineError + "is missing.\n");
}

TEST_F(Program, RefusesAFileAboveOneGibibyte) {
    ASSERT_EQ(truncate(folder.Write("huge.con", "").c_str(), (off_t{1} << 30) + 1), 0);
    ExpectResult(RunProgram({"show", "huge.con"}), 3, "",
                 std::string("strativo-cli: huge.con: ") + commandLineError
                     + "error 7 occurred.\n");
}

TEST_F(Program, SaysThatAFileMayNotGrowAndKeepsTheOldOne) {
    folder.Write("out.con", "as it was");
    std::vector<std::string> parts(15, brickPart);
    folder.Write("large.con", WallFile(parts));
    ExpectResult(RunProgram({"rewrite", "large.con", "out.con"}, {.largestFile = 300}), 3, "",
                 "strativo-cli: large.con: out.con The file was not saved: File too large\n");
    EXPECT_EQ(folder.Read("out.con"), "as it was");
    EXPECT_THAT(folder.Entries(), testing::SizeIs(4)) << "no temporary file is left";
}

TEST_F(Program, WritesNothingIntoAFileThatTakesTheNumberOfAClosedDescriptor) {
    folder.Write("flat.con", WallFile({"_ 1 =       12      0.000      0            * x"}));
    const std::string whole = RunProgram({"report", "flat.con"}).out;
    for (const int descriptor : {0, 1, 2}) {
        const RunResult result =
            RunProgram({"report", "flat.con", "-o", "page.html"}, {.closed = descriptor});
        EXPECT_EQ(folder.Read("page.html"), whole) << descriptor;
        EXPECT_EQ(result.status, 0);
    }
    ExpectResult(RunProgram({"show", "a.con"}, {.closed = 1}), 3, "",
                 "strativo-cli: standard output could not be written\n");
}

TEST_F(Program, EndsWithAnErrorWhenItsOutputCannotBeWritten) {
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"show", "a.con"},
                                               {"show", "--json", "a.con"},
                                               {"check", "a.con"},
                                               {"materials", "std.lby"},
                                               {"--help"},
                                               {"--version"}})
        ExpectResult(RunProgram(arguments, {.standardOutput = "/dev/full"}), 3, "",
                     "strativo-cli: standard output could not be written\n");
}

} // namespace
} // namespace strativo
