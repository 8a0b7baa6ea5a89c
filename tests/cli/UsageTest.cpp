#include "cli/CommandRun.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct WrongUse {
    const char* name;
    std::vector<std::string> arguments;
    std::string message;
    std::string usage;
};

const std::string generalUsage = "Usage: strativo-cli [OPTIONS] COMMAND FILE... "
                                 "(strativo-cli --help lists the commands)";

class WrongUsage : public CliTest, public testing::WithParamInterface<WrongUse> {};

TEST_P(WrongUsage, GivesAMessageAndAUsageLine) {
    const RunResult result = RunTool(GetParam().arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "strativo-cli: " + GetParam().message + "\n" + GetParam().usage + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Cli, WrongUsage,
    testing::Values(
        WrongUse{"NoCommand", {}, "no command given", generalUsage},
        WrongUse{"OnlyOptions", {"--json"}, "no command given", generalUsage},
        WrongUse{"UnknownCommand", {"frob", "a.con"}, "unknown command frob", generalUsage},
        WrongUse{"UnknownOption", {"show", "--frob", "a"}, "unknown option --frob", generalUsage},
        WrongUse{"UnknownShortOption", {"show", "-x", "a"}, "unknown option -x", generalUsage},
        WrongUse{"NoFile",
                 {"show"},
                 "show takes FILE.con...",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"NoFileToCheck",
                 {"check", "--json"},
                 "check takes FILE.con|LIB.lby...",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"NoTarget",
                 {"rewrite", "a.con"},
                 "rewrite takes FILE.con OUT.con",
                 "Usage: strativo-cli [OPTIONS] rewrite FILE.con OUT.con"},
        WrongUse{"TooManyFiles",
                 {"rewrite", "a", "b", "c"},
                 "rewrite takes FILE.con OUT.con",
                 "Usage: strativo-cli [OPTIONS] rewrite FILE.con OUT.con"},
        WrongUse{"TooFewToImport",
                 {"import-glass", "a", "b"},
                 "import-glass takes FILE.con FROM.con OUT.con",
                 "Usage: strativo-cli [OPTIONS] import-glass FILE.con FROM.con OUT.con"},
        WrongUse{"TwoLibraries",
                 {"materials", "a", "b"},
                 "materials takes LIB.lby",
                 "Usage: strativo-cli [OPTIONS] materials LIB.lby"},
        WrongUse{"EmptyFileName",
                 {"show", ""},
                 "a file name is empty",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"EmptyOption",
                 {"show", "--standard", "", "a"},
                 "--standard needs a text that is not empty",
                 generalUsage},
        WrongUse{"JsonToRewrite",
                 {"rewrite", "--json", "a", "b"},
                 "--json is no option of rewrite",
                 "Usage: strativo-cli [OPTIONS] rewrite FILE.con OUT.con"},
        WrongUse{"UserToShow",
                 {"show", "--user", "a"},
                 "--user is no option of show",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"SortToCheck",
                 {"check", "--sort", "density", "a"},
                 "--sort is no option of check",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"DefaultSortToCheck",
                 {"check", "--sort", "name", "a"},
                 "--sort is no option of check",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"StrictToShow",
                 {"show", "--strict", "a"},
                 "--strict is no option of show",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"RuleToShow",
                 {"show", "--rule", "u-range", "a"},
                 "--rule is no option of show",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"UnknownRule",
                 {"check", "--rule", "frob", "a"},
                 "--rule knows no rule frob",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"UnknownRuleToLeaveOut",
                 {"check", "--no-rule", "u-range", "--no-rule", "frob", "a"},
                 "--no-rule knows no rule frob",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"NoTemperature",
                 {"thermal", "--inside", "warm", "a"},
                 "--inside needs a number from -273.15 to 1000000, not warm",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"TemperatureBelowAll",
                 {"thermal", "--outside", "-300", "a"},
                 "--outside needs a number from -273.15 to 1000000, not -300",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"TemperatureBeyondAll",
                 {"thermal", "--outside", "1e999", "a"},
                 "--outside needs a number from -273.15 to 1000000, not 1e999",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"TemperatureThatIsNoNumber",
                 {"thermal", "--inside", "nan", "a"},
                 "--inside needs a number from -273.15 to 1000000, not nan",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"NegativeFilm",
                 {"thermal", "--rsi", "-0.1", "a"},
                 "--rsi needs a number from 0 to 1000000000000, not -0.1",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"FilmWithUnit",
                 {"thermal", "--rse", "0.1 m", "a"},
                 "--rse needs a number from 0 to 1000000000000, not 0.1 m",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"UnknownFlow",
                 {"thermal", "--flow", "sideways", "a"},
                 "--flow knows no direction sideways",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"UnknownSide",
                 {"thermal", "--first-layer", "top", "a"},
                 "--first-layer knows no side top",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"ThermalWithoutJson",
                 {"show", "--thermal", "a"},
                 "--thermal needs --json",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"FlowToShow",
                 {"show", "--flow", "up", "a"},
                 "--flow is no option of show",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"NoFileForThermal",
                 {"thermal"},
                 "thermal takes FILE.con...",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"UnknownOrder",
                 {"materials", "--sort", "colour", "a"},
                 "--sort knows no order colour",
                 "Usage: strativo-cli [OPTIONS] materials LIB.lby"},
        WrongUse{"NulsWithoutAList",
                 {"show", "-0", "a"},
                 "-0 needs --files-from",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"LongNulsWithoutAList",
                 {"check", "--null", "a"},
                 "-0 needs --files-from",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"NoJobs",
                 {"show", "--jobs", "0", "a"},
                 "--jobs takes a number from 1 to 256",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"NegativeJobs",
                 {"check", "--jobs", "-1", "a"},
                 "--jobs takes a number from 1 to 256",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"TooManyJobs",
                 {"report", "--jobs", "257", "a"},
                 "--jobs takes a number from 1 to 256",
                 "Usage: strativo-cli [OPTIONS] report FILE.con..."},
        WrongUse{"HalfAJob",
                 {"thermal", "--jobs", "1.5", "a"},
                 "--jobs takes a number from 1 to 256",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"JobsInWords",
                 {"thermal", "--jobs", "two", "a"},
                 "--jobs takes a number from 1 to 256",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"JobsBeyondAnInteger",
                 {"show", "--jobs", "99999999999", "a"},
                 "--jobs takes a number from 1 to 256",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"JobsToBuild",
                 {"build", "--jobs", "2", "a", "b"},
                 "--jobs is no option of build",
                 "Usage: strativo-cli [OPTIONS] build PROJECT.json OUT.con"},
        WrongUse{"ListToRewrite",
                 {"rewrite", "--files-from", "list", "a", "b"},
                 "--files-from is no option of rewrite",
                 "Usage: strativo-cli [OPTIONS] rewrite FILE.con OUT.con"},
        WrongUse{"ListToMaterials",
                 {"materials", "--files-from", "list", "a"},
                 "--files-from is no option of materials",
                 "Usage: strativo-cli [OPTIONS] materials LIB.lby"},
        WrongUse{"JsonAndCsv",
                 {"thermal", "--json", "--csv", "a"},
                 "--json and --csv do not go together",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"JsonAndCsvOfMaterials",
                 {"materials", "--json", "--csv", "a"},
                 "--json and --csv do not go together",
                 "Usage: strativo-cli [OPTIONS] materials LIB.lby"},
        WrongUse{"JsonLinesAndJson",
                 {"check", "--jsonl", "--json", "a"},
                 "--jsonl does not go together with --json and --csv",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"JsonLinesAndCsv",
                 {"show", "--jsonl", "--csv", "a"},
                 "--jsonl does not go together with --json and --csv",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"JsonLinesToThermal",
                 {"thermal", "--jsonl", "a"},
                 "--jsonl is no option of thermal",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"JsonLinesToMaterials",
                 {"materials", "--jsonl", "a"},
                 "--jsonl is no option of materials",
                 "Usage: strativo-cli [OPTIONS] materials LIB.lby"},
        WrongUse{"CsvToCheck",
                 {"check", "--csv", "a"},
                 "--csv is no option of check",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"ThermalTable",
                 {"show", "--thermal", "--csv", "a"},
                 "--thermal needs --json",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"ThermalToCheck",
                 {"check", "--thermal", "--json", "a"},
                 "--thermal is no option of check",
                 "Usage: strativo-cli [OPTIONS] check FILE.con|LIB.lby..."},
        WrongUse{"FileMadeOfNothing",
                 {"build", "a.con"},
                 "build takes PROJECT.json OUT.con",
                 "Usage: strativo-cli [OPTIONS] build PROJECT.json OUT.con"},
        WrongUse{"ThreeFilesToBuild",
                 {"build", "a", "b", "c"},
                 "build takes PROJECT.json OUT.con",
                 "Usage: strativo-cli [OPTIONS] build PROJECT.json OUT.con"},
        WrongUse{"FileAndFaultsToOneStream",
                 {"build", "--json", "a", "-"},
                 "--json and the file cannot both go to standard output",
                 "Usage: strativo-cli [OPTIONS] build PROJECT.json OUT.con"},
        WrongUse{"LibraryAndFaultsToOneStream",
                 {"library", "--json", "-n", "a", "-"},
                 "--json and the file cannot both go to standard output",
                 "Usage: strativo-cli [OPTIONS] library TABLE.csv OUT.lby"},
        WrongUse{"CsvToBuild",
                 {"build", "--csv", "a", "b"},
                 "--csv is no option of build",
                 "Usage: strativo-cli [OPTIONS] build PROJECT.json OUT.con"},
        WrongUse{"UserToBuild",
                 {"build", "--user", "a", "b"},
                 "--user is no option of build",
                 "Usage: strativo-cli [OPTIONS] build PROJECT.json OUT.con"},
        WrongUse{"LibraryOfNothing",
                 {"library", "a.lby"},
                 "library takes TABLE.csv OUT.lby",
                 "Usage: strativo-cli [OPTIONS] library TABLE.csv OUT.lby"},
        WrongUse{"ForceToLibrary",
                 {"library", "--force", "a", "b"},
                 "--force is no option of library",
                 "Usage: strativo-cli [OPTIONS] library TABLE.csv OUT.lby"},
        WrongUse{"OutputToLibrary",
                 {"library", "-o", "b", "a"},
                 "-o is no option of library",
                 "Usage: strativo-cli [OPTIONS] library TABLE.csv OUT.lby"},
        WrongUse{"ExportWithoutFormat",
                 {"export", "a"},
                 "export needs --format epjson",
                 "Usage: strativo-cli [OPTIONS] export FILE.con"},
        WrongUse{"ExportToUnknownFormat",
                 {"export", "--format", "idf", "a"},
                 "--format knows no format idf",
                 "Usage: strativo-cli [OPTIONS] export FILE.con"},
        WrongUse{"ExportOfNothing",
                 {"export", "--format", "epjson"},
                 "export takes FILE.con",
                 "Usage: strativo-cli [OPTIONS] export FILE.con"},
        WrongUse{"ExportOfTwo",
                 {"export", "--format", "epjson", "a", "b"},
                 "export takes FILE.con",
                 "Usage: strativo-cli [OPTIONS] export FILE.con"},
        WrongUse{"ExportFromTheTop",
                 {"export", "--format", "epjson", "--first-layer", "top", "a"},
                 "--first-layer knows no side top",
                 "Usage: strativo-cli [OPTIONS] export FILE.con"},
        WrongUse{"JsonToExport",
                 {"export", "--format", "epjson", "--json", "a"},
                 "--json is no option of export",
                 "Usage: strativo-cli [OPTIONS] export FILE.con"},
        WrongUse{"FormatToShow",
                 {"show", "--format", "epjson", "a"},
                 "--format is no option of show",
                 "Usage: strativo-cli [OPTIONS] show FILE.con..."},
        WrongUse{"OpaqueOnlyToReport",
                 {"report", "--opaque-only", "a"},
                 "--opaque-only is no option of report",
                 "Usage: strativo-cli [OPTIONS] report FILE.con..."},
        WrongUse{"DryRunOfRewrite",
                 {"rewrite", "-n", "a", "b"},
                 "-n is no option of rewrite",
                 "Usage: strativo-cli [OPTIONS] rewrite FILE.con OUT.con"},
        WrongUse{"JsonToReport",
                 {"report", "--json", "a"},
                 "--json is no option of report",
                 "Usage: strativo-cli [OPTIONS] report FILE.con..."},
        WrongUse{"SeveralReportsInOne",
                 {"report", "-o", "a.html", "a", "b"},
                 "report of several files needs -o DIR/",
                 "Usage: strativo-cli [OPTIONS] report FILE.con..."},
        WrongUse{"StrictToThermal",
                 {"thermal", "--strict", "a"},
                 "--strict is no option of thermal",
                 "Usage: strativo-cli [OPTIONS] thermal FILE.con..."},
        WrongUse{"StrictToMaterials",
                 {"materials", "--strict", "a"},
                 "--strict is no option of materials",
                 "Usage: strativo-cli [OPTIONS] materials LIB.lby"}),
    [](const auto& test) { return test.param.name; });

class Usage : public CliTest {};

TEST_F(Usage, AnOptionWithoutItsTextIsWrong) {
    const RunResult result = RunTool({"show", "a.con", "--standard"});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, StartsWith("strativo-cli: --standard"));
    EXPECT_THAT(result.err, HasSubstr("\n" + generalUsage + "\n"));
}

TEST_F(Usage, AnOptionGivenTwiceIsWrong) {
    const RunResult result =
        RunTool({"--standard", "a.lby", "show", "a.con", "--standard", "b.lby"});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, StartsWith("strativo-cli: --standard"));
}

TEST_F(Usage, HelpNamesEveryCommandAndOptionWithExamples) {
    const RunResult result = RunTool({"--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    for (const char* text :
         {"show FILE.con...", "check FILE.con|LIB.lby...", "rewrite FILE.con OUT.con",
          "import-glass FILE.con FROM.con OUT.con", "thermal FILE.con...", "materials LIB.lby",
          "--standard LIB.lby", "--user-library LIB.lby", "--json", "--user ", "--sort KEY",
          "--strict", "--rule NAME", "--no-rule NAME", "--help", "--version",
          "Exit status: 0 all well", "Examples:\n  strativo-cli show house.con\n"})
        EXPECT_THAT(result.out, HasSubstr(text));
}

TEST_F(Usage, EachCommandHasAHelpOfItsOwn) {
    for (const char* command : {"show", "check", "rewrite", "import-glass", "build", "export",
                                "report", "thermal", "library", "materials"}) {
        const RunResult result = RunTool({command, "--help"});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_THAT(result.out,
                    StartsWith(std::string("Usage: strativo-cli [OPTIONS] ") + command + " "));
        EXPECT_THAT(result.out, HasSubstr("Examples:\n  strativo-cli "));
        EXPECT_EQ(RunTool({"--help", command}).out, result.out);
    }
}

TEST_F(Usage, ACommandsHelpLeavesOutOptionsOfOthers) {
    const std::string help = RunTool({"rewrite", "--help"}).out;
    EXPECT_THAT(help, HasSubstr("--standard"));
    EXPECT_THAT(help, testing::Not(HasSubstr("--json")));
    EXPECT_THAT(help, testing::Not(HasSubstr("--sort")));
    EXPECT_THAT(RunTool({"materials", "--help"}).out, HasSubstr("--sort KEY"));
}

TEST_F(Usage, VersionIsOneLine) {
    const RunResult result = RunTool({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "strativo-cli 2.1.0\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(Usage, OptionsStandBeforeOrAfterTheCommand) {
    folder.Write("std.lby", standardLibraryBytes);
    folder.Write("a.con", WallFile({"!MATERIALS FILE = 'gone.lby'"}, {brickPart}));
    const RunResult before = RunTool({"--standard", "std.lby", "--json", "show", "a.con"});
    EXPECT_EQ(before.status, 0);
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"show", "--standard", "std.lby", "--json", "a.con"},
             {"show", "a.con", "--json", "--standard=std.lby"},
             {"--json", "show", "a.con", "--standard", "std.lby"}})
        EXPECT_EQ(RunTool(arguments).out, before.out);
}

TEST_F(Usage, FilesMayHaveTheNamesOfCommandsAndOptions) {
    folder.Write("std.lby", standardLibraryBytes);
    const std::string expected = "Construction 1  Wall  (Opaque)\n"
                                 "  Indicative Uvalue W/Cm2  n/a\n";
    for (const char* name : {"show", "check", "--json", "-x.con"}) {
        folder.Write(name, WallFile({}));
        const RunResult result = RunTool({"show", "--", name});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, expected);
    }
    EXPECT_EQ(RunTool({"show", "show"}).out, expected);
}

TEST_F(Usage, APathInSquareBracketsIsOnePath) {
    folder.Write("std.lby", standardLibraryBytes);
    folder.Write("[a,b]", WallFile({}));
    const RunResult result = RunTool({"show", "[a,b]"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
}

TEST_F(Usage, ASingleBlankIsAFileName) {
    folder.Write(" ", standardLibraryBytes);
    folder.Write("a.con", WallFile({"!MATERIALS FILE = 'gone.lby'"}, {brickPart}));
    EXPECT_EQ(RunTool({"materials", " "}).status, 0);
    EXPECT_EQ(RunTool({"rewrite", "--standard", " ", "a.con", "b.con"}).status, 0);
    EXPECT_EQ(RunTool({"rewrite", "--standard", "./ ", "a.con", "c.con"}).status, 0);
    EXPECT_EQ(folder.Read("b.con"), folder.Read("c.con"));
    folder.Write("std.lby", standardLibraryBytes);
    folder.Write("a.con", WallFile({brickPart}));
    EXPECT_EQ(RunTool({"rewrite", "a.con", " "}).status, 0);
    EXPECT_EQ(RunTool({"show", " "}).out, RunTool({"show", "a.con"}).out);
}

} // namespace
} // namespace strativo
