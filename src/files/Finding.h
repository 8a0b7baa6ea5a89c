#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

enum class Severity {
    error,  ///< wrong: a program that reads the file fails or calculates something else
    warning ///< implausible: somebody should look at it
};

struct FindingRule {
    const char* name;
    Severity severity;
};

/// The rules of construction files and libraries, in the order in which they are documented.
const std::vector<FindingRule>& FindingRules();

/// The rule with that name, or null.
const FindingRule* FindFindingRule(std::string_view name);

/// Something in a project or library that is likely to be a mistake.
struct Finding {
    std::string rule;     ///< such as "zero-thickness"
    int construction = 0; ///< 0 for a glass type or a library
    int layer = 0;        ///< slot number; 0 for no single layer
    int glassType = 0;    ///< number among the types of its kind; 0 for none
    int material = 0;     ///< slot in its library; 0 for none
    int line = 0;         ///< line of a library file; 0 for a construction file
    std::string name;     ///< name of the construction, glass type or material
    std::string text;     ///< where and what, without the rule
};

Severity SeverityOf(const Finding& finding);

/// A broken rule and what is reported about it.
struct BrokenRule {
    const char* rule;
    std::string text;
};

} // namespace strativo
