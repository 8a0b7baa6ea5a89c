#pragma once

#include "cli/Invocation.h"

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// Options that only some commands know, as bits.
enum OwnOptions : unsigned {
    noOption = 0,
    jsonOption = 1,
    userOption = 2,
    sortOption = 4,
    csvOption = 8,
    outputOption = 16,
    strictOption = 32,
    ruleOption = 64,
    noRuleOption = 128,
    thermalOption = 256, ///< thermal figures along with others
    insideOption = 512,
    outsideOption = 1024,
    flowOption = 2048,
    rsiOption = 4096,
    rseOption = 8192,
    firstLayerOption = 16384,
    thermalConditions =
        insideOption | outsideOption | flowOption | rsiOption | rseOption | firstLayerOption,
    forceOption = 1 << 15,
    dryRunOption = 1 << 16,
    exportOption = 1 << 17,
    manyFilesOption = 1 << 18,
    jsonLinesOption = 1 << 19
};

struct Command {
    const char* name;
    const char* operands; ///< as shown in the synopsis
    const char* summary;
    const char* examples; ///< whole lines
    std::size_t operandCount;
    bool moreOperands; ///< operandCount or any larger number of operands
    unsigned options;  ///< of OwnOptions
    int (*run)(const Invocation& call, std::ostream& out, std::ostream& err);
};

/// A flag, an option with a text, or one that may be given several times.
struct Option {
    const char* names;    ///< separated by commas
    const char* argument; ///< "" for a flag
    const char* summary;
    unsigned ownOption; ///< of OwnOptions; noOption: every command knows it
    bool Invocation::*flag;
    std::string Invocation::*text;
    std::vector<std::string> Invocation::*list = nullptr;
};

extern const std::span<const Command> commands;
extern const std::span<const Option> options;

/// The command of that name, or null.
const Command* FindCommand(std::string_view name);

/// "Usage: ..." of the command, or of the program where it is null.
std::string UsageLine(const Command* command);

/// The manual of the command, or of the program where it is null.
void PrintHelp(std::ostream& out, const Command* command);

} // namespace strativo
