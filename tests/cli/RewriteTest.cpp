#include "cli/CommandRun.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <sstream>

namespace strativo {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// The bytes without the lines that hold only a comment.
std::string WithoutComments(const std::string& bytes) {
    std::istringstream lines(bytes);
    std::string rest;
    for (std::string line; std::getline(lines, line);)
        rest += line.rfind('*', 0) == 0 ? "" : line + "\n";
    return rest;
}

class Rewrite : public CliTest {
protected:
    Rewrite() {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
        folder.Write("a.con", WallFile({brickPart}));
    }

    /// Runs without any output on either stream, whatever the status.
    static int QuietStatus(const std::vector<std::string>& arguments) {
        const RunResult result = RunTool(arguments);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "");
        return result.status;
    }
};

TEST_F(Rewrite, WritesWhatWasRead) {
    EXPECT_EQ(QuietStatus({"rewrite", "a.con", "b.con"}), 0);
    EXPECT_EQ(
        folder.Read("b.con"),
        Lines({"!MATERIALS FILE = 'std.lby'", "", "!CONSTRUCTION 'Wall'", "!TYPE OPAQUE", "!PARTS",
               "_ 1 =       12      0.105      0            * FACE BRICK", "!END", ""}));
}

TEST_F(Rewrite, MayWriteOverItsInput) {
    EXPECT_EQ(QuietStatus({"rewrite", "a.con", "b.con"}), 0);
    EXPECT_EQ(QuietStatus({"rewrite", "a.con", "a.con"}), 0);
    EXPECT_EQ(folder.Read("a.con"), folder.Read("b.con"));
}

TEST_F(Rewrite, NeverReplacesALibraryThatTheFileNames) {
    folder.Write("glass.con", WallFile({brickPart}));
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"rewrite", "a.con", "std.lby"},
          {"rewrite", "a.con", "./std.lby"},
          {"import-glass", "a.con", "glass.con", "std.lby"}}) {
        const RunResult result = RunTool(arguments);
        EXPECT_EQ(result.status, 2) << result.err;
        EXPECT_THAT(result.err, testing::HasSubstr("std.lby is one of the files that are read"));
        EXPECT_EQ(folder.Read("std.lby"), standardLibraryBytes);
    }
}

TEST_F(Rewrite, OfAFileWithoutALineOfTheFormatReplacesNothingAndSaysSo) {
    const std::string letter = "Dear Sir,\r\nthe walls are _ wet = bad!\r\n";
    folder.Write("letter.con", letter);
    folder.Write("empty.con", "");
    for (const char* file : {"letter.con", "empty.con"}) {
        const RunResult result = RunTool({"--standard", "std.lby", "rewrite", file, file});
        EXPECT_EQ(result.status, 3);
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err,
                    testing::EndsWith(std::string("strativo-cli: ") + file
                                      + ": No line is one of a construction file; nothing is "
                                        "written\n"));
    }
    EXPECT_EQ(folder.Read("letter.con"), letter);
    EXPECT_EQ(folder.Read("empty.con"), "");
    folder.Write("end.con", "!EOF\r\n");
    EXPECT_EQ(RunTool({"--standard", "std.lby", "rewrite", "end.con", "end.con"}).status, 0);
}

TEST_F(Rewrite, OfARewriteGivesTheSameBytesCommentsApart) {
    fs::copy(fs::path(STRATIVO_SOURCE) / "data", folder.Path() / "data",
             fs::copy_options::recursive);
    EXPECT_EQ(QuietStatus({"rewrite", "data/examples/house.con", "data/examples/1.con"}), 0);
    EXPECT_EQ(QuietStatus({"rewrite", "data/examples/1.con", "data/examples/2.con"}), 0);
    EXPECT_EQ(QuietStatus({"rewrite", "data/examples/2.con", "data/examples/3.con"}), 0);
    const std::string first = folder.Read("data/examples/1.con");
    const std::string second = folder.Read("data/examples/2.con");
    EXPECT_NE(first, second);
    EXPECT_EQ(WithoutComments(first), second);
    EXPECT_EQ(second, folder.Read("data/examples/3.con"));
}

TEST_F(Rewrite, AnswersTheSaveChecksWithYes) {
    folder.Write("zero.con",
                 WallFile({"_ 1 =       12      0.000      0            * FACE BRICK"}));
    const RunResult result = RunTool({"rewrite", "zero.con", "b.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "strativo-cli: zero.con: The following construction(s) have at least one "
                          "zero thickness  Wall  Do you wish to save anyway? \n");
    EXPECT_THAT(folder.Read("b.con"), testing::HasSubstr("      0.000      0   "));
}

TEST_F(Rewrite, WritesNothingWhenTheFileWasNotReadToItsEnd) {
    folder.Write("broken.con", folder.Read("a.con") + "!CONSTRUCTION 'Broken\r\n");
    const RunResult result = RunTool({"rewrite", "broken.con", "b.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "strativo-cli: broken.con: Command line error "
                          "Construction file (p) is incorrect version\n");
    EXPECT_FALSE(fs::exists("b.con"));
}

TEST_F(Rewrite, WritesNothingWhenALibraryCouldNotBeRead) {
    folder.Write("user.lby", "12* HEMP,0.04 40 1600\r\nno record\r\n");
    folder.Write("own.con", WallFile({standardLine, userLine}, {hempPart}));
    const RunResult result = RunTool({"rewrite", "own.con", "own.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "strativo-cli: own.con: User material file is incorrect version\n");
    EXPECT_EQ(folder.Read("own.con"), WallFile({standardLine, userLine}, {hempPart}));
}

TEST_F(Rewrite, WritesNothingWhenTheProgramWouldHaveEnded) {
    folder.Write("lost.con", WallFile({"!MATERIALS FILE = 'gone.lby'"}, {brickPart}));
    EXPECT_EQ(RunTool({"rewrite", "lost.con", "b.con"}).status, 3);
    EXPECT_FALSE(fs::exists("b.con"));
}

TEST_F(Rewrite, NamesTheLibraryThatThePromptWasAnsweredWith) {
    folder.Write("lost.con", WallFile({"!MATERIALS FILE = 'gone.lby'"}, {brickPart}));
    const RunResult result = RunTool({"rewrite", "lost.con", "b.con", "--standard", "std.lby"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "strativo-cli: lost.con: Standard material file is missing.\n");
    EXPECT_EQ(folder.Read("b.con").substr(0, 29), standardLine + "\r\n");
}

TEST_F(Rewrite, AFailedWriteLeavesTheFileAsItWas) {
    folder.Write("locked.con", "as it was");
    fs::permissions("locked.con", fs::perms::owner_read);
    const RunResult result = RunTool({"rewrite", "a.con", "locked.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, testing::StartsWith("strativo-cli: a.con: locked.con "
                                                "The file was not saved: "));
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1);
    EXPECT_EQ(folder.Read("locked.con"), "as it was");
    EXPECT_THAT(folder.Entries(), ElementsAre("a.con", "locked.con", "std.lby", "user.lby"));
}

TEST_F(Rewrite, CannotWriteToAMissingFolder) {
    const RunResult result = RunTool({"rewrite", "a.con", "gone/b.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "strativo-cli: a.con: gone/b.con The file was not saved: "
                          "No such file or directory\n");
}

using ImportGlass = Rewrite;

std::string GlassFile(const std::string& name) {
    return Lines({"!WINDOW = '" + name + "'", "!TRANSMISSION =", "0.5, 0.6", "!END"});
}

TEST_F(ImportGlass, AddsTheGlassTypesOfTheOtherFile) {
    folder.Write("a.con", folder.Read("a.con") + GlassFile("CLEAR"));
    folder.Write("from.con", GlassFile("CLEAR") + GlassFile("BRONZE"));
    EXPECT_EQ(QuietStatus({"import-glass", "a.con", "from.con", "b.con"}), 0);
    std::vector<std::string> sections;
    std::istringstream lines(folder.Read("b.con"));
    for (std::string line; std::getline(lines, line);)
        if (line.find("!CONSTRUCTION") == 0 || line.find("!WINDOW") == 0)
            sections.push_back(line.substr(0, line.size() - 1));
    EXPECT_THAT(sections, ElementsAre("!CONSTRUCTION 'Wall'", "!WINDOW = 'CLEAR'",
                                      "!WINDOW = 'CLEAR'", "!WINDOW = 'BRONZE'"));
    EXPECT_THAT(folder.Read("b.con"),
                testing::HasSubstr("!WINDOW = 'BRONZE'\r\n!TRANSMISSION =\r\n"
                                   "0.5, 0.6, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0\r\n"));
}

TEST_F(ImportGlass, MayWriteOverEitherInput) {
    folder.Write("from.con", GlassFile("CLEAR"));
    EXPECT_EQ(QuietStatus({"import-glass", "a.con", "from.con", "b.con"}), 0);
    EXPECT_EQ(QuietStatus({"import-glass", "a.con", "from.con", "from.con"}), 0);
    EXPECT_EQ(folder.Read("from.con"), folder.Read("b.con"));
    folder.Write("from.con", GlassFile("CLEAR"));
    EXPECT_EQ(QuietStatus({"import-glass", "a.con", "from.con", "a.con"}), 0);
    EXPECT_EQ(folder.Read("a.con"), folder.Read("b.con"));
}

TEST_F(ImportGlass, IntoAFileWithoutALineOfTheFormatReplacesNothingAndSaysSo) {
    const std::string letter = "Dear Sir,\r\nthe walls are wet!\r\n";
    folder.Write("letter.con", letter);
    folder.Write("from.con", GlassFile("CLEAR"));
    const RunResult result =
        RunTool({"--standard", "std.lby", "import-glass", "letter.con", "from.con", "letter.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, testing::EndsWith("strativo-cli: letter.con: No line is one of a "
                                              "construction file; nothing is written\n"));
    EXPECT_EQ(folder.Read("letter.con"), letter);
    EXPECT_EQ(QuietStatus({"import-glass", "a.con", "letter.con", "b.con"}), 0);
}

TEST_F(ImportGlass, WritesNothingWhenALibraryOfTheFirstFileCouldNotBeRead) {
    folder.Write("from.con", GlassFile("CLEAR"));
    folder.Write("folder/x", "");
    std::string tooMany;
    for (int number = 1; number <= 100; ++number)
        tooMany += std::to_string(number) + "* AB,1 2 3\r\n";
    folder.Write("many.lby", tooMany);
    folder.Write("bad.lby", "12* HEMP,0.04 40 1600\r\nno record\r\n");
    for (const std::string name : {"folder", "many.lby", "bad.lby"}) {
        SCOPED_TRACE(name);
        const std::string line = "!MATERIALS USER FILE = '" + name + "'";
        folder.Write("own.con", WallFile({standardLine, line}, {hempPart}));
        EXPECT_EQ(RunTool({"import-glass", "own.con", "from.con", "own.con"}).status, 3);
        EXPECT_EQ(RunTool({"rewrite", "own.con", "own.con"}).status, 3);
        EXPECT_EQ(folder.Read("own.con"), WallFile({standardLine, line}, {hempPart}));
    }
}

TEST_F(Rewrite, WritesNothingWhenThePromptForAnUnnamedLibraryIsCancelled) {
    const std::string bytes = WallFile({standardLine, "!MATERIALS USER FILE = ''"}, {hempPart});
    folder.Write("own.con", bytes);
    EXPECT_EQ(RunTool({"rewrite", "own.con", "own.con"}).status, 3);
    EXPECT_EQ(folder.Read("own.con"), bytes);
}

struct ImportFailure {
    const char* name;
    std::string from; ///< content of the file to import from; "" none
    std::string err;
};

class FailedImport : public Rewrite, public testing::WithParamInterface<ImportFailure> {};

TEST_P(FailedImport, WritesNothing) {
    if (!GetParam().from.empty())
        folder.Write("from.con", GetParam().from);
    const RunResult result = RunTool({"import-glass", "a.con", "from.con", "b.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "strativo-cli: from.con: " + GetParam().err + "\n");
    EXPECT_FALSE(fs::exists("b.con"));
}

INSTANTIATE_TEST_SUITE_P(
    Cli, FailedImport,
    testing::Values(ImportFailure{"Missing", "", "Construction file (g) is missing."},
                    ImportFailure{"NotReadToItsEnd", GlassFile("A") + "!WINDOW = 'Broken\r\n",
                                  "Construction file (g) is incorrect version"},
                    ImportFailure{"NumberTooLarge", "!WINDOW = 'A'\r\n!TRANS\r\n1e400\r\n",
                                  "Construction (g) file error  6 occurred."}),
    [](const auto& test) { return test.param.name; });

TEST_F(ImportGlass, WritesNothingWhenTheFirstFileIsMissing) {
    folder.Write("from.con", GlassFile("CLEAR"));
    const RunResult result = RunTool({"import-glass", "gone.con", "from.con", "b.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "strativo-cli: gone.con: Command line error "
                          "Construction file (p) is missing.\n");
    EXPECT_FALSE(fs::exists("b.con"));
}

} // namespace
} // namespace strativo
