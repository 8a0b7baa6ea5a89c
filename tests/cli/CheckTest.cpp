#include "cli/CommandRun.h"
#include "files/Finding.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace strativo {
namespace {

using nlohmann::json;

struct RuleCase {
    const char* name;
    std::string bytes;
    std::string line;    ///< of the text output
    std::string finding; ///< of the JSON output
};

std::string GlassFile(const std::vector<std::string>& lines) {
    std::vector<std::string> all = {standardLine, "!WINDOW = 'G'"};
    all.insert(all.end(), lines.begin(), lines.end());
    return Lines(all);
}

class CheckRule : public CliTest, public testing::WithParamInterface<RuleCase> {
protected:
    CheckRule() {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
        folder.Write("a.con", GetParam().bytes);
    }
};

TEST_P(CheckRule, IsOneLine) {
    const RunResult result = RunTool({"check", "a.con"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "a.con: " + GetParam().line + "\n");
}

TEST_P(CheckRule, IsOneJsonObject) {
    const RunResult result = RunTool({"check", "--json", "a.con"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "");
    json expected = {{"file", "a.con"}, {"messages", json::array()}, {"ended", false}};
    json finding = json::parse(GetParam().finding);
    finding["rule"] = GetParam().line.substr(0, GetParam().line.find(':'));
    finding["severity"] = "error";
    finding["text"] = GetParam().line.substr(GetParam().line.find(": ") + 2);
    expected["findings"] = {finding};
    EXPECT_EQ(Document(result), json({expected}));
}

INSTANTIATE_TEST_SUITE_P(
    Cli, CheckRule,
    testing::Values(
        RuleCase{"ZeroThickness", WallFile({"_ 1 =       12      0.000      0            * x"}),
                 "zero-thickness: Construction 1 \"Wall\": at least one zero thickness",
                 R"({"construction": 1, "name": "Wall"})"},
        RuleCase{"ZeroAbsorption",
                 Lines({standardLine, "!CONSTRUCTION 'Pane'", "!TYPE TRANSPARENT",
                        "_ 1 =       12      0.004      0      0.00      * x", "!END"}),
                 "zero-absorption: Construction 1 \"Pane\": a total absorption equal to zero",
                 R"({"construction": 1, "name": "Pane"})"},
        RuleCase{"UnlinkedMaterial", WallFile({"_ 1 =       13      0.100      0            * x"}),
                 "unlinked-material: Construction 1 \"Wall\", layer 1: "
                 "material 13 is not in the standard library",
                 R"({"construction": 1, "layer": 1, "name": "Wall"})"},
        RuleCase{"UnlinkedUserMaterial",
                 WallFile({standardLine, userLine},
                          {brickPart, "_ 2 =      @30      0.100      0            * x"}),
                 "unlinked-material: Construction 1 \"Wall\", layer 2: "
                 "material 30 is not in the user library",
                 R"({"construction": 1, "layer": 2, "name": "Wall"})"},
        RuleCase{"UnknownCavity",
                 WallFile({brickPart, "_ 2 =       -4      0.100      0            * x"}),
                 "unknown-cavity: Construction 1 \"Wall\", layer 2: no cavity type has the code -4",
                 R"({"construction": 1, "layer": 2, "name": "Wall"})"},
        RuleCase{"NoLayers", WallFile({}), "no-layers: Construction 1 \"Wall\": no layers",
                 R"({"construction": 1, "name": "Wall"})"},
        RuleCase{"DuplicateGlassName", GlassFile({"!END", "!WINDOW = 'G'", "!END"}),
                 "duplicate-glass-name: Glass type 2 \"G\": an earlier one has this name too",
                 R"({"glassType": 2, "name": "G"})"},
        RuleCase{"GlassValueRange", GlassFile({"!DIFFUSION =", "0, 0, 0, 0, 1.2", "!END"}),
                 "glass-value-range: Glass type 1 \"G\": diffusion at 30 degrees is 1.2",
                 R"({"glassType": 1, "name": "G"})"},
        RuleCase{"GlassEnergyBalance",
                 GlassFile({"!TRANSMISSION =", "0.7, 0.7, 0.7", "!ABSORPTION =", "0.3, 0.3, 0.31",
                            "!END"}),
                 "glass-energy-balance: Glass type 1 \"G\": transmission and absorption "
                 "at 10 degrees add up to 1.01",
                 R"({"glassType": 1, "name": "G"})"}),
    [](const auto& test) { return test.param.name; });

class Check : public CliTest {
protected:
    Check() {
        folder.Write("std.lby", standardLibraryBytes);
        folder.Write("good.con", WallFile({brickPart}));
        folder.Write("empty.con", WallFile({}));
        folder.Write("broken.con", WallFile({}) + "!CONSTRUCTION 'Broken\r\n");
    }
};

TEST_F(Check, FindsNothingInAGoodFile) {
    const RunResult result = RunTool({"check", "good.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(Document(RunTool({"check", "--json", "good.con"}))[0]["findings"], json::array());
}

TEST_F(Check, FindsNothingInTheHouse) {
    const RunResult result =
        RunTool({"check", std::string(STRATIVO_SOURCE) + "/data/examples/house.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
}

TEST_F(Check, FindingsOfOneFileMakeTheStatusOfAll) {
    const RunResult result = RunTool({"check", "good.con", "empty.con", "good.con"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "empty.con: no-layers: Construction 1 \"Wall\": no layers\n");
}

TEST_F(Check, AFileThatCannotBeReadWeighsMoreThanFindings) {
    const RunResult result = RunTool({"check", "empty.con", "gone.con", "empty.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "strativo-cli: gone.con: Command line error "
                          "Construction file (p) is missing.\n");
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 2);
}

TEST_F(Check, LooksForNothingInAFileThatWasNotReadToItsEnd) {
    const RunResult result = RunTool({"check", "broken.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "strativo-cli: broken.con: Command line error "
                          "Construction file (p) is incorrect version\n");
}

const std::string thickPart = "_ 1 =       12      2.500      0            * FACE BRICK";
const std::string roundedPart = "_ 1 =       12      0.1055     0            * FACE BRICK";

TEST_F(Check, WarningsAreToldWithTheirSeverityAndLeaveTheStatus) {
    folder.Write("a.con", WallFile({roundedPart}));
    const std::string text =
        "Construction 1 \"Wall\", layer 1: 105.5 is written to the file as 106";
    const RunResult result = RunTool({"check", "a.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "a.con: warning: rounded-thickness: " + text + "\n");
    const RunResult document = RunTool({"check", "--json", "a.con"});
    EXPECT_EQ(document.status, 0);
    EXPECT_EQ(Document(document)[0]["findings"], json({{{"rule", "rounded-thickness"},
                                                        {"severity", "warning"},
                                                        {"construction", 1},
                                                        {"layer", 1},
                                                        {"name", "Wall"},
                                                        {"text", text}}}));
}

TEST_F(Check, StrictCountsWarnings) {
    folder.Write("a.con", WallFile({roundedPart}));
    EXPECT_EQ(RunTool({"check", "--strict", "a.con"}).status, 1);
    EXPECT_EQ(RunTool({"check", "--strict", "good.con"}).status, 0);
}

TEST_F(Check, TellsOfTheRulesAskedForOnly) {
    folder.Write("a.con", WallFile({thickPart})
                              + Lines({"!CONSTRUCTION 'WALL'", "!PARTS", roundedPart, "!END"}));
    const auto rulesOf = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"check", "--json", "a.con"});
        std::vector<std::string> rules;
        const json document = Document(RunTool(arguments));
        for (const json& finding : document[0]["findings"])
            rules.push_back(finding["rule"]);
        return rules;
    };
    using testing::ElementsAre;
    EXPECT_THAT(rulesOf({}), ElementsAre("thickness-range", "duplicate-name", "rounded-thickness"));
    EXPECT_THAT(rulesOf({"--rule", "thickness-range"}), ElementsAre("thickness-range"));
    EXPECT_THAT(rulesOf({"--rule", "rounded-thickness", "--rule=thickness-range"}),
                ElementsAre("thickness-range", "rounded-thickness"));
    EXPECT_THAT(rulesOf({"--no-rule", "thickness-range"}),
                ElementsAre("duplicate-name", "rounded-thickness"));
    EXPECT_THAT(rulesOf({"--rule", "u-range"}), testing::IsEmpty());
    EXPECT_THAT(rulesOf({"--rule", "u-range", "--no-rule", "u-range"}), testing::IsEmpty());
}

TEST_F(Check, ARuleLeftOutDoesNotMakeTheStatus) {
    EXPECT_EQ(RunTool({"check", "--no-rule", "no-layers", "empty.con"}).status, 0);
    EXPECT_EQ(RunTool({"check", "--rule", "u-range", "empty.con"}).status, 0);
    EXPECT_EQ(RunTool({"check", "--rule", "no-layers", "empty.con"}).status, 1);
}

TEST_F(Check, ReadsLibrariesOfBothLayouts) {
    folder.Write("a.lby", "12'FACE BRICK' 0.84 1700 800\r\n12'RENDER' 0,5 1300 1000\r\n");
    folder.Write("b.LBY", "12*A,1 2 3\r\n14* OAK\x1B,0.14 1630 704\r\n");
    const RunResult result = RunTool({"check", "a.lby", "b.LBY", "good.con"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(
        result.out,
        "a.lby:2: error: duplicate-code: Material 2 \"RENDER\": line 1 has the number 12 too; "
        "layers get the last one\n"
        "a.lby:2: warning: text-after-number: Material 2 \"RENDER\": conductivity \"0,5\" is "
        "read as 0\n"
        "a.lby:2: warning: no-conductivity: Material 2 \"RENDER\": the material has no "
        "conductivity\n"
        "b.LBY:1: error: line-not-read: no blank between the asterisk and the name\n"
        "b.LBY:2: warning: density-heat-swapped: Material 1 \"OAK\\u001B\": density 1630 and "
        "specific heat 704 look exchanged\n");
}

TEST_F(Check, AFindingInALibraryIsOneJsonObject) {
    folder.Write("a.lby", "12'\xC4' 1 1700 800\r\n0'B' 1 1700 800\r\n");
    const RunResult result = RunTool({"check", "--json", "a.lby"});
    EXPECT_EQ(result.status, 1);
    const std::string text = "Material 2 \"B\": no layer can refer to the number 0; it takes a "
                             "whole one from 1 to 32767";
    EXPECT_EQ(Document(result), json({{{"file", "a.lby"},
                                       {"messages", json::array()},
                                       {"ended", false},
                                       {"findings",
                                        {{{"rule", "code-range"},
                                          {"severity", "error"},
                                          {"material", 2},
                                          {"line", 2},
                                          {"name", "B"},
                                          {"text", text}}}}}}));
}

TEST_F(Check, FindsNothingInTheLibrariesThatComeWithTheProgram) {
    const std::string data = std::string(STRATIVO_SOURCE) + "/data/";
    const RunResult result =
        RunTool({"check", "--strict", data + "stdmat.lby", data + "examples/user.lby"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
}

TEST_F(Check, UserSetsTheLayoutOfLibraries) {
    folder.Write("a.lby", "12'AB' 1 2000 1000\r\n");
    EXPECT_EQ(RunTool({"check", "a.lby"}).status, 0);
    EXPECT_EQ(RunTool({"check", "--user", "a.lby"}).out,
              "a.lby:1: error: line-not-read: no asterisk behind the number\n");
    EXPECT_EQ(RunTool({"check", "--user", "good.con"}).status, 0);
}

TEST_F(Check, ConstructionFilesAreKnownByTheirContent) {
    folder.Write("walls.lby", WallFile({}));
    EXPECT_EQ(RunTool({"check", "walls.lby"}).out,
              "walls.lby: no-layers: Construction 1 \"Wall\": no layers\n");
    folder.Write("library.con", standardLibraryBytes);
    EXPECT_EQ(RunTool({"check", "library.con"}).out, "");
}

TEST_F(Check, SaysWhyALibraryCouldNotBeRead) {
    const RunResult result = RunTool({"check", "gone.lby", "good.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "strativo-cli: gone.lby: Standard material file is missing.\n");
}

TEST_F(Check, EveryRuleIsInTheManual) {
    const std::string page = SourceFile("docs/manual/check.html");
    for (const FindingRule& rule : FindingRules())
        EXPECT_THAT(page, testing::HasSubstr(std::string("<code>") + rule.name + "</code>"));
}

TEST_F(Check, EveryRuleIsCompletedByTheShells) {
    for (const char* file : {"_strativo-cli", "strativo-cli.bash", "strativo-cli.fish"}) {
        const std::string bytes = SourceFile(std::string("packaging/completions/") + file);
        for (const FindingRule& rule : FindingRules())
            EXPECT_THAT(bytes, testing::HasSubstr(rule.name)) << file;
    }
}

TEST_F(Check, DecodesNamesAsWindows1252) {
    folder.Write("a.con", Lines({standardLine, "!CONSTRUCTION 'D\xE4mmung'", "!END"}));
    EXPECT_EQ(RunTool({"check", "a.con"}).out,
              "a.con: no-layers: Construction 1 \"D\u00E4mmung\": no layers\n");
    EXPECT_EQ(Document(RunTool({"check", "--json", "a.con"}))[0]["findings"][0]["name"],
              "D\u00E4mmung");
}

} // namespace
} // namespace strativo
