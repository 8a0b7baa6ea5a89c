#include "files/Finding.h"

#include <algorithm>

namespace strativo {

const std::vector<FindingRule>& FindingRules() {
    static const std::vector<FindingRule> rules = {
        {"zero-thickness", Severity::error},
        {"zero-absorption", Severity::error},
        {"unlinked-material", Severity::error},
        {"unknown-cavity", Severity::error},
        {"no-layers", Severity::error},
        {"duplicate-glass-name", Severity::error},
        {"glass-value-range", Severity::error},
        {"glass-energy-balance", Severity::error},
        {"density-heat-swapped", Severity::warning},
        {"thickness-range", Severity::warning},
        {"negative-value", Severity::warning},
        {"u-range", Severity::warning},
        {"thin-conductive", Severity::warning},
        {"absorption-range", Severity::warning},
        {"absorption-sum", Severity::warning},
        {"duplicate-name", Severity::warning},
        {"rounded-thickness", Severity::warning},
        {"cavity-resistance", Severity::warning},
        {"conductivity-range", Severity::warning},
        {"density-range", Severity::warning},
        {"heat-range", Severity::warning},
        {"no-conductivity", Severity::warning},
        {"no-heat-storage", Severity::warning},
        {"line-not-read", Severity::error},
        {"too-many-materials", Severity::error},
        {"duplicate-code", Severity::error},
        {"code-range", Severity::error},
        {"reserved-name", Severity::error},
        {"empty-name", Severity::error},
        {"name-changed", Severity::warning},
        {"name-cut", Severity::warning},
        {"text-after-number", Severity::warning},
        {"undefined-byte", Severity::warning},
    };
    return rules;
}

const FindingRule* FindFindingRule(std::string_view name) {
    const std::vector<FindingRule>& rules = FindingRules();
    const auto found = std::find_if(rules.begin(), rules.end(),
                                    [&](const FindingRule& rule) { return rule.name == name; });
    return found == rules.end() ? nullptr : &*found;
}

Severity SeverityOf(const Finding& finding) {
    const FindingRule* rule = FindFindingRule(finding.rule);
    return rule == nullptr ? Severity::error : rule->severity;
}

} // namespace strativo
