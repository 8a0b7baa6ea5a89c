#include "cli/CommandTable.h"

#include "cli/Commands.h"
#include "cli/TextOutput.h"
#include "text/Format.h"

#include <algorithm>
#include <ostream>

namespace strativo {

namespace {

constexpr Command commandRows[] = {
    {"show", "FILE.con...", "each construction as its window shows it, then the glass types",
     "  strativo-cli show house.con\n"
     "  strativo-cli show --json *.con | jq '.[].constructions[].result'\n"
     "  strativo-cli show --csv *.con > layers.csv\n"
     "  find . -name '*.con' -print0 | strativo-cli show --jsonl --files-from - -0\n",
     1, true, jsonOption | csvOption | thermalOption | jsonLinesOption | manyFilesOption, Show},
    {"check", "FILE.con|LIB.lby...",
     "findings, one a line; exit 1 for an error (--strict: or a warning)",
     "  strativo-cli check house.con\n"
     "  strativo-cli check --json --standard stdmat.lby *.con\n"
     "  strativo-cli check stdmat.lby\n"
     "  strativo-cli check --strict --no-rule u-range house.con\n",
     1, true,
     jsonOption | userOption | strictOption | ruleOption | noRuleOption | jsonLinesOption
         | manyFilesOption,
     Check},
    {"rewrite", "FILE.con OUT.con", "read FILE.con, write OUT.con",
     "  strativo-cli rewrite house.con clean.con\n"
     "  strativo-cli --standard stdmat.lby rewrite house.con house.con\n",
     2, false, noOption, Rewrite},
    {"import-glass", "FILE.con FROM.con OUT.con",
     "read FILE.con, import FROM.con's glass definitions, write OUT.con",
     "  strativo-cli import-glass house.con glazing.con house.con\n", 3, false, noOption,
     ImportGlass},
    {"build", "PROJECT.json OUT.con",
     "a construction file from JSON; - is standard input or output",
     "  strativo-cli build wall.json wall.con\n"
     "  strativo-cli show --json house.con | jq '.[0].constructions[0].name = \"Wall\"' |\n"
     "    strativo-cli build - house.con\n",
     2, false, jsonOption | forceOption | dryRunOption, Build},
    {"export", "FILE.con", "constructions and materials in a format of another program",
     "  strativo-cli export --format epjson house.con -o house.epJSON\n", 1, false,
     outputOption | exportOption | firstLayerOption, Export},
    {"report", "FILE.con...", "one HTML page to print: sections, layers, U-values, glass, findings",
     "  strativo-cli report house.con -o house.html\n"
     "  strativo-cli report house.con --flow up --outside -5 -o roofs.html\n"
     "  strativo-cli report *.con -o pages/\n",
     1, true, outputOption | manyFilesOption | thermalConditions, WriteReport},
    {"thermal", "FILE.con...",
     "what each construction does to heat: U-values, temperatures, 24 h swing",
     "  strativo-cli thermal house.con --inside 20 --outside -5\n"
     "  strativo-cli thermal --flow all --csv *.con > thermal.csv\n"
     "  strativo-cli thermal --rsi 0.25 --json house.con\n",
     1, true, jsonOption | csvOption | manyFilesOption | thermalConditions, Thermal},
    {"library", "TABLE.csv OUT.lby",
     "a material library from a table; - is standard input or output",
     "  strativo-cli library materials.csv own.lby\n"
     "  strativo-cli library --user materials.csv user.lby\n",
     2, false, jsonOption | userOption | dryRunOption, MakeLibrary},
    {"materials", "LIB.lby", "the library as the Select Material dialog lists it",
     "  strativo-cli materials stdmat.lby --sort conductivity\n"
     "  strativo-cli materials --user user.lby --json\n"
     "  strativo-cli materials --csv stdmat.lby > materials.csv\n",
     1, false, jsonOption | csvOption | userOption | sortOption, Materials},
};

constexpr Option optionRows[] = {
    {"--standard", "LIB.lby", "answer to the prompt for the standard library, and its default path",
     noOption, nullptr, &Invocation::standardLibrary},
    {"--user-library", "LIB.lby", "answer to the prompt for the user library", noOption, nullptr,
     &Invocation::userLibrary},
    {"--json", "", "machine-readable output", jsonOption, &Invocation::json, nullptr},
    {"--jsonl", "", "machine-readable output, a line for each file", jsonLinesOption,
     &Invocation::jsonLines, nullptr},
    {"--csv", "",
     "a table: of show a row per layer, of thermal per construction and flow, of materials what "
     "library reads",
     csvOption, &Invocation::csv, nullptr},
    {"--thermal", "", "with --json: thermal figures of each construction too", thermalOption,
     &Invocation::thermal, nullptr},
    {"--inside", "T", "inside air, degrees C; default 20", insideOption, nullptr,
     &Invocation::inside},
    {"--outside", "T", "outside air, degrees C; default 0", outsideOption, nullptr,
     &Invocation::outside},
    {"--flow", "DIRECTION", "of heat: horizontal (default), up, down, all", flowOption, nullptr,
     &Invocation::flow},
    {"--rsi", "R", "inside surface resistance, m2K/W, in place of that of the flow", rsiOption,
     nullptr, &Invocation::rsi},
    {"--rse", "R", "outside surface resistance, likewise", rseOption, nullptr, &Invocation::rse},
    {"--first-layer", "SIDE", "that layer 1 faces: outside (default), inside", firstLayerOption,
     nullptr, &Invocation::firstLayer},
    {"-o,--output", "FILE",
     "write there; default: standard output; DIR/ of report: pages DIR/NAME.html", outputOption,
     nullptr, &Invocation::output},
    {"--jobs", "N", "files at a time, 1 to 256; default: the processors", manyFilesOption, nullptr,
     &Invocation::jobs},
    {"--files-from", "FILE", "more names of files, one a line; - is standard input",
     manyFilesOption, nullptr, &Invocation::filesFrom},
    {"-0,--null", "", "each of those ends with a NUL, not with its line", manyFilesOption,
     &Invocation::nullEnds, nullptr},
    {"--force", "", "write names too that a reader of the file would not get back", forceOption,
     &Invocation::force, nullptr},
    {"-n,--dry-run", "", "everything but the writing", dryRunOption, &Invocation::dryRun, nullptr},
    {"--format", "NAME", "epjson, the input of EnergyPlus", exportOption, nullptr,
     &Invocation::format},
    {"--opaque-only", "", "say nothing about glass and what is transparent", exportOption,
     &Invocation::opaqueOnly, nullptr},
    {"--user", "", "LIB.lby has the user layout; default: the standard layout", userOption,
     &Invocation::user, nullptr},
    {"--sort", "KEY",
     "name (default), conductivity, density, specific-heat, file (as stored; default of --csv)",
     sortOption, nullptr, &Invocation::sortKey},
    {"--strict", "", "exit 1 for warnings too", strictOption, &Invocation::strict, nullptr},
    {"--rule", "NAME", "findings of this rule only; may be given several times", ruleOption,
     nullptr, nullptr, &Invocation::rules},
    {"--no-rule", "NAME", "no findings of this rule; may be given several times", noRuleOption,
     nullptr, nullptr, &Invocation::leftOutRules},
    {"-h,--help", "", "this text; after a command: about that command", noOption, &Invocation::help,
     nullptr},
    {"--version", "", "the version", noOption, &Invocation::version, nullptr},
};

constexpr char exitStatuses[] =
    "\nExit status: 0 all well; 1 check found an error (with --strict: or a warning), export left\n"
    "something out; 2 wrong usage; 3 a file could not be read or written, was refused, or the\n"
    "desktop program would have ended; 130 Ctrl+C. Of several, the highest.\n";

constexpr std::size_t commandWidth = 38;
constexpr std::size_t optionWidth = 22;

void PrintRow(std::ostream& out, const std::string& subject, std::size_t width,
              const std::string& summary) {
    out << "  " << LeftField(subject, width, width) << "  " << summary << '\n';
}

/// The names of the commands that know the option, in brackets.
std::string KnownTo(const Option& option) {
    std::string names;
    for (const Command& command : commands)
        if ((command.options & option.ownOption) != 0)
            names += (names.empty() ? "(" : ", ") + std::string(command.name);
    return names.empty() ? "" : names + ") ";
}

void PrintOptions(std::ostream& out, const Command* command) {
    out << "\nOptions, before or after the command:\n";
    for (const Option& option : options) {
        const bool known = command == nullptr || option.ownOption == noOption
                           || (command->options & option.ownOption) != 0;
        if (known)
            PrintRow(out, option.names + std::string(" ") + option.argument, optionWidth,
                     (command == nullptr ? KnownTo(option) : "") + option.summary);
    }
}

} // namespace

const std::span<const Command> commands = commandRows;
const std::span<const Option> options = optionRows;

const Command* FindCommand(std::string_view name) {
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const Command& entry) { return entry.name == name; });
    return found == commands.end() ? nullptr : &*found;
}

std::string UsageLine(const Command* command) {
    const std::string start = std::string("Usage: ") + programName + " [OPTIONS] ";
    if (command == nullptr)
        return start + "COMMAND FILE... (" + programName + " --help lists the commands)";
    return start + command->name + " " + command->operands;
}

void PrintHelp(std::ostream& out, const Command* command) {
    if (command == nullptr) {
        out << "Usage: " << programName << " [OPTIONS] COMMAND FILE...\n\n"
            << "Works on construction files and material libraries without a "
               "window.\n\nCommands:\n";
        for (const Command& entry : commands)
            PrintRow(out, std::string(entry.name) + " " + entry.operands, commandWidth,
                     entry.summary);
    } else {
        out << UsageLine(command) << "\n\n" << command->summary << '\n';
    }
    PrintOptions(out, command);
    out << exitStatuses << "\nExamples:\n";
    for (const Command& entry : commands)
        if (command == nullptr || command == &entry)
            out << entry.examples;
}

} // namespace strativo
