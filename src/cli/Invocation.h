#pragma once

#include <string>
#include <vector>

namespace strativo {

/// What the caller asked for, without the command's name.
struct Invocation {
    std::vector<std::string> operands;
    std::string standardLibrary;           ///< "" when not given
    std::string userLibrary;               ///< likewise
    std::string sortKey;                   ///< likewise
    std::string output;                    ///< "" for standard output
    std::vector<std::string> rules;        ///< rules of findings to report; all if empty
    std::vector<std::string> leftOutRules; ///< of findings
    std::string inside;                    ///< degrees C; "" for the usual temperature
    std::string outside;                   ///< likewise
    std::string flow = "horizontal";
    std::string rsi; ///< m2 K/W; "" for that of the direction of flow
    std::string rse; ///< likewise
    std::string firstLayer = "outside";
    std::string format;    ///< "" when not given
    std::string jobs;      ///< "" when not given
    std::string filesFrom; ///< likewise
    bool nullEnds = false; ///< names in filesFrom end with a null byte
    bool jsonLines = false;
    bool opaqueOnly = false;
    bool strict = false;
    bool json = false;
    bool csv = false;
    bool thermal = false;
    bool user = false;
    bool force = false;
    bool dryRun = false;
    bool help = false;
    bool version = false;
};

} // namespace strativo
