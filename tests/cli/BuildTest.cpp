#include "benchmarks/ConstructionFileGenerator.h"
#include "cli/CommandRun.h"
#include "support/Mutation.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace strativo {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class Build : public CliTest {
protected:
    Build() {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
    }

    /// Writes the bytes again, once by way of JSON and once by rewriting them. True when both give
    /// the same or both are refused.
    testing::AssertionResult ComesBack(const std::string& bytes) {
        folder.Write("in.con", bytes);
        fs::remove("rewritten.con");
        fs::remove("built.con");
        const RunResult rewrite = RunTool(WithLibraries({"rewrite", "in.con", "rewritten.con"}));
        folder.Write("in.json", RunTool(WithLibraries({"show", "--json", "in.con"})).out);
        const RunResult build = RunTool({"build", "in.json", "built.con"});
        written += build.status == 0 ? 1 : 0;
        if (rewrite.status != build.status)
            return testing::AssertionFailure() << rewrite.err << build.err << bytes;
        if (build.status == 0 && folder.Read("built.con") != folder.Read("rewritten.con"))
            return testing::AssertionFailure() << "not the same bytes:\n" << bytes;
        return testing::AssertionSuccess();
    }

    static std::vector<std::string> WithLibraries(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--standard", "std.lby", "--user-library", "user.lby"});
        return arguments;
    }

    int written = 0;
};

TEST_F(Build, GivesBackEveryInputKeptOfFuzzing) {
    for (const char* target : {"ConstructionFile", "GlassImport", "WriteRead"})
        for (const auto& entry :
             fs::directory_iterator(std::string(STRATIVO_SOURCE) + "/fuzz/corpus/" + target))
            EXPECT_TRUE(ComesBack(SourceFile(std::string("fuzz/corpus/") + target + "/"
                                             + entry.path().filename().string())))
                << entry.path();
    EXPECT_GE(written, 36); // the others are no construction files
}

TEST_F(Build, GivesBackTheSampleFiles) {
    for (const auto& entry : fs::directory_iterator(std::string(STRATIVO_SOURCE) + "/tests/golden"))
        if (fs::exists(entry.path() / "input.con")) {
            EXPECT_TRUE(ComesBack(
                SourceFile("tests/golden/" + entry.path().filename().string() + "/input.con")));
        }
    EXPECT_TRUE(ComesBack(SourceFile("data/examples/house.con")));
    EXPECT_GT(written, 8);
}

TEST_F(Build, GivesBackGeneratedFiles) {
    for (unsigned seed = 1; seed <= 40; ++seed)
        EXPECT_TRUE(ComesBack(MakeConstructionFile({.constructions = static_cast<int>(seed),
                                                    .layers = 1 + static_cast<int>(seed % 15),
                                                    .seed = seed})));
    EXPECT_EQ(written, 40);
}

TEST_F(Build, GivesBackDamagedFiles) {
    Mutation mutation(16);
    const std::vector<std::string> samples = {SourceFile("tests/golden/comments/input.con"),
                                              SourceFile("tests/golden/glass/input.con"),
                                              SourceFile("tests/golden/odd-lines/input.con")};
    for (std::size_t round = 0; round < 600; ++round)
        ASSERT_TRUE(ComesBack(mutation.Of(samples[round % samples.size()])));
    EXPECT_GT(written, 300);
}

TEST_F(Build, ReadsStandardInputAndWritesStandardOutput) {
    folder.Write("a.con", WallFile({brickPart}));
    folder.Write("a.json", RunTool({"show", "--json", "a.con"}).out);
    ASSERT_EQ(RunTool({"rewrite", "a.con", "b.con"}).status, 0);
    const RunResult result = RunProgram({"build", "-", "-"}, {.standardInput = "a.json"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, folder.Read("b.con"));
    folder.Write("-", "[]");
    EXPECT_EQ(RunTool({"build", "./-", "out.con"}).status, 3);
}

TEST_F(Build, MayWriteOverItsInput) {
    folder.Write("a.json", R"({"standardLibraryFile": "std.lby"})");
    EXPECT_EQ(RunTool({"build", "a.json", "a.json"}).status, 0);
    EXPECT_EQ(folder.Read("a.json"), "!MATERIALS FILE = 'std.lby'\r\n\r\n");
}

TEST_F(Build, RunsTheSaveChecksAndAnswersYes) {
    folder.Write("a.json", R"({"standardLibraryFile": "s", "constructions": [{"name": "Thin",
        "layers": [{"materialCode": 1, "thickness": 0}]}]})");
    const RunResult result = RunTool({"build", "a.json", "a.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err,
              "strativo-cli: a.json: The following construction(s) have at least one zero "
              "thickness  Thin  Do you wish to save anyway? \n");
    EXPECT_TRUE(fs::exists("a.con"));
}

TEST_F(Build, DoesEverythingButTheWritingInADryRun) {
    folder.Write("a.json", R"({"standardLibraryFile": "s"})");
    EXPECT_EQ(RunTool({"build", "-n", "a.json", "a.con"}).status, 0);
    EXPECT_FALSE(fs::exists("a.con"));
    folder.Write("a.json", R"({"standardLibraryFile": 1})");
    EXPECT_EQ(RunTool({"build", "--dry-run", "a.json", "a.con"}).status, 3);
}

TEST_F(Build, TellsAllFaultsAndLeavesTheFileAsItWas) {
    folder.Write("a.con", "as it was");
    folder.Write("a.json", "{\"a/\\u001b\": 1, \"standardLibraryFile\": 1}");
    const RunResult result = RunTool({"build", "a.json", "a.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "strativo-cli: a.json: /a~1\\u001B: the key \"a/\\u001B\" is not known "
              "[unknown-key]\n"
              "strativo-cli: a.json: /standardLibraryFile: expected a string (path of the "
              "standard library), got the number 1 [wrong-type]\n");
    EXPECT_EQ(folder.Read("a.con"), "as it was");
    folder.Write("a.json", "{\n  \"a\" 1}");
    EXPECT_EQ(RunTool({"build", "a.json", "a.con"}).err,
              "strativo-cli: a.json:2:7: expected a colon [json-syntax]\n");
    folder.Write("a.json", "[]");
    EXPECT_THAT(RunTool({"build", "a.json", "a.con"}).err, HasSubstr("a.json: (root): expected"));
}

TEST_F(Build, CountsTheFaultsBeyondAThousand) {
    std::string json = R"({"standardLibraryFile": "s", "constructions": [0)";
    for (int i = 1; i < 1005; ++i)
        json += ",0";
    folder.Write("a.json", json + "]}");
    const RunResult result = RunTool({"build", "a.json", "a.con"});
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1001);
    EXPECT_THAT(result.err, testing::EndsWith("\nstrativo-cli: a.json: and 5 more\n"));
    EXPECT_EQ(Document(RunTool({"build", "--json", "a.json", "a.con"}))["errors"].size(), 1000);
}

TEST_F(Build, ReportsAsJsonInAllCases) {
    const auto report = [&](const std::string& json) {
        folder.Write("a.json", json);
        return Document(RunTool({"build", "--json", "a.json", "a.con"}));
    };
    EXPECT_EQ(report(R"({"standardLibraryFile": "s"})"),
              nlohmann::json(
                  {{"file", "a.json"}, {"written", true}, {"errors", nlohmann::json::array()}}));
    const auto syntax = report("{");
    EXPECT_EQ(syntax["written"], false);
    EXPECT_EQ(syntax["errors"][0]["rule"], "json-syntax");
    EXPECT_EQ(syntax["errors"][0]["pointer"], "");
    EXPECT_EQ(syntax["errors"][0]["line"], 1);
    EXPECT_EQ(syntax["errors"][0]["column"], 2);
    const auto gone = Document(RunTool({"build", "--json", "gone.json", "a.con"}));
    EXPECT_EQ(gone["errors"][0]["rule"], "not-read");
    folder.Write("a.json", R"({"standardLibraryFile": "s"})");
    const auto unwritten = Document(RunTool({"build", "--json", "a.json", "gone/a.con"}));
    EXPECT_EQ(unwritten["written"], false);
    EXPECT_EQ(unwritten["errors"][0]["rule"], "not-written");
}

TEST_F(Build, WritesNamesThatAReaderLosesByForceOnly) {
    folder.Write("a.json", R"({"standardLibraryFile": "o'neill.lby"})");
    const RunResult refused = RunTool({"build", "a.json", "a.con"});
    EXPECT_EQ(refused.status, 3);
    EXPECT_EQ(refused.err,
              "strativo-cli: a.json: /standardLibraryFile: a reader of the construction file "
              "would not get this back, the string \"o'neill.lby\" (--force writes it all the "
              "same) [unstorable-name]\n");
    const RunResult forced = RunTool({"build", "--force", "a.json", "a.con"});
    EXPECT_EQ(forced.status, 0);
    EXPECT_THAT(forced.err, HasSubstr("cannot be read back from a construction file  o'neill.lby"));
    EXPECT_THAT(folder.Read("a.con"), HasSubstr("'o'neill.lby'"));
}

TEST_F(Build, RefusesAFileThatIsTooLargeWithoutReadingIt) {
    folder.Write("a.json", "");
    fs::resize_file("a.json", std::uintmax_t{1} << 40);
    EXPECT_EQ(RunTool({"build", "a.json", "a.con"}).err,
              "strativo-cli: a.json: (root): the text is larger than 64 MiB [json-limit]\n");
}

} // namespace
} // namespace strativo
