#include "cli/CommandRun.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace strativo {
namespace {

namespace fs = std::filesystem;

class Library : public CliTest {
protected:
    const std::string header = "code,name,conductivity,density,specificheat\n";
};

TEST_F(Library, MakesALibraryThatMaterialsListsAsTheTable) {
    folder.Write("std.lby", standardLibraryBytes);
    const RunResult table = RunTool({"materials", "--csv", "std.lby"});
    EXPECT_EQ(table.status, 0);
    EXPECT_EQ(table.out,
              "code,name,conductivity_w_per_m_k,density_kg_per_m3,specific_heat_j_per_kg_k\r\n"
              "12,FACE BRICK,0.84,1700,800\r\n"
              "30,PLASTER,0.5,1300,1000\r\n"
              "7,ALUMINIUM,160,2800,880\r\n");
    folder.Write("table.csv", table.out);
    for (const bool user : {false, true}) {
        std::vector<std::string> make = {"library", "table.csv", "own.lby"};
        std::vector<std::string> list = {"materials", "--csv", "own.lby"};
        if (user)
            for (auto* arguments : {&make, &list})
                arguments->push_back("--user");
        const RunResult made = RunTool(make);
        EXPECT_EQ(made.status, 0) << made.err;
        EXPECT_EQ(RunTool(list).out, table.out);
    }
}

TEST_F(Library, SortsTheTableWhenAsked) {
    folder.Write("std.lby", standardLibraryBytes);
    EXPECT_THAT(RunTool({"materials", "--csv", "--sort", "conductivity", "std.lby"}).out,
                testing::HasSubstr("PLASTER,0.5,1300,1000\r\n12,"));
}

TEST_F(Library, TellsEveryFaultAndLeavesTheFileAsItWas) {
    folder.Write("table.csv", header + "1,A,O.84,1,1\n0,\x1B,1,1,1\n");
    folder.Write("own.lby", "as it was");
    const RunResult result = RunTool({"library", "table.csv", "own.lby"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err,
              "strativo-cli: table.csv:2:3: conductivity: \"O.84\" is not a number [bad-number]\n"
              "strativo-cli: table.csv:3:1: code: \"0\" is no whole number from 1 to 32767 "
              "[code-range]\n"
              "strativo-cli: table.csv:3:2: name: \"\\u001B\" holds U+001B, which a library cannot "
              "hold [unstorable-character]\n");
    EXPECT_EQ(folder.Read("own.lby"), "as it was");
    const auto report = Document(RunTool({"library", "--json", "table.csv", "own.lby"}));
    EXPECT_EQ(report["written"], false);
    EXPECT_EQ(report["errors"][0],
              nlohmann::json({{"rule", "bad-number"},
                              {"line", 2},
                              {"column", 3},
                              {"text", "conductivity: \"O.84\" is not a number"}}));
}

TEST_F(Library, TellsOfLongNamesButWritesThem) {
    folder.Write("table.csv", header + "1," + std::string(34, 'a') + ",1,1,1\n");
    const RunResult result = RunTool({"library", "table.csv", "-"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "1'" + std::string(34, 'A') + "' 1 1 1\r\n");
    EXPECT_THAT(result.err, testing::MatchesRegex("strativo-cli: table.csv:2:2: .*name-cut.\n"));
}

TEST_F(Library, MayWriteOverItsTable) {
    folder.Write("table.csv", header + "1,A,1,1,1\n");
    EXPECT_EQ(RunTool({"library", "table.csv", "./table.csv"}).status, 0);
    EXPECT_EQ(folder.Read("table.csv"), "1'A' 1 1 1\r\n");
}

TEST_F(Library, WritesNothingInADryRun) {
    folder.Write("table.csv", header + "1,A,1,1,1\n");
    EXPECT_EQ(RunTool({"library", "-n", "table.csv", "own.lby"}).status, 0);
    EXPECT_FALSE(fs::exists("own.lby"));
}

TEST_F(Library, ReadsStandardInput) {
    folder.Write("table.csv", header + "1,A,1,1,1\n");
    const RunResult result = RunProgram({"library", "-", "-"}, {.standardInput = "table.csv"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "1'A' 1 1 1\r\n");
}

class Export : public CliTest {
protected:
    Export() { folder.Write("std.lby", standardLibraryBytes); }
};

TEST_F(Export, WritesTheObjectsInTheirOrder) {
    folder.Write("a.con", WallFile({brickPart, "_ 2 = -1 0.05 0", brickPart}));
    const RunResult result = RunTool({"export", "--format", "epjson", "a.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "{\n  \"Version\": {\"Version 1\": {\"version_identifier\": \"23.2\"}},\n"
              "  \"Material\": {\n"
              "    \"FACE BRICK (105 mm)\": {\"roughness\": \"MediumRough\", \"thickness\": 0.105, "
              "\"conductivity\": 0.84, \"density\": 1700.0, \"specific_heat\": 800.0}\n  },\n"
              "  \"Material:AirGap\": {\n"
              "    \"CAVITY Type 1 NORMAL\": {\"thermal_resistance\": 0.11}\n  },\n"
              "  \"Construction\": {\n"
              "    \"Wall\": {\"outside_layer\": \"FACE BRICK (105 mm)\", \"layer_2\": \"CAVITY "
              "Type 1 NORMAL\", \"layer_3\": \"FACE BRICK (105 mm)\"}\n  }\n}\n");
}

TEST_F(Export, SaysWhatItLeavesOutWithStatusOne) {
    folder.Write("a.con", WallFile({"_ 1 = -1 0.05 0"}));
    const RunResult result = RunTool({"export", "--format", "epjson", "a.con", "-o", "a.epJSON"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "strativo-cli: a.con: construction 1 Wall left out: its first or last "
                          "layer is a cavity [cavity-at-surface]\n");
    EXPECT_EQ(folder.Read("a.epJSON"),
              "{\n  \"Version\": {\"Version 1\": {\"version_identifier\": \"23.2\"}}\n}\n");
}

TEST_F(Export, WritesToStandardOutputByItsName) {
    folder.Write("a.con", WallFile({brickPart}));
    folder.Write("-", "a file of that name");
    const std::vector<std::string> call = {"export", "--format", "epjson", "a.con", "-o", "-"};
    EXPECT_EQ(RunTool(call).out, RunTool({call.begin(), call.end() - 2}).out);
    EXPECT_EQ(folder.Read("-"), "a file of that name");
}

TEST_F(Export, ReplacesNoFileThatItReads) {
    folder.Write("other.lby", standardLibraryBytes);
    folder.Write("a.con", WallFile({brickPart}));
    fs::create_hard_link("a.con", "hard.con");
    fs::create_symlink("std.lby", "soft.lby");
    for (const std::string output : {"a.con", "./a.con", "hard.con", "soft.lby", "other.lby"}) {
        const std::string before = folder.Read(output);
        const RunResult result = RunTool(
            {"export", "--format", "epjson", "--standard", "other.lby", "a.con", "-o", output});
        EXPECT_EQ(result.status, 2) << output;
        EXPECT_THAT(result.err, testing::HasSubstr(output + " is one of the files that are read"));
        EXPECT_EQ(folder.Read(output), before) << output;
    }
}

TEST_F(Export, WritesNothingOfAFileNotReadToItsEnd) {
    folder.Write("a.con", WallFile({brickPart, "_ 2 = 1e99 0.1"}));
    const RunResult result = RunTool({"export", "--format", "epjson", "a.con", "-o", "a.epJSON"});
    EXPECT_EQ(result.status, 3);
    EXPECT_FALSE(fs::exists("a.epJSON"));
}

TEST_F(Export, WritesNothingOfAFileWithoutALineOfTheFormat) {
    folder.Write("letter.con", "Dear Sir,\r\nthe walls are wet!\r\n");
    const RunResult result = RunTool(
        {"export", "--format", "epjson", "--standard", "std.lby", "letter.con", "-o", "a.epJSON"});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, testing::HasSubstr("letter.con: No line is one of a construction file; "
                                               "nothing is written\n"));
    EXPECT_FALSE(fs::exists("a.epJSON"));
}

} // namespace
} // namespace strativo
