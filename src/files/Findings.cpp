#include "files/Findings.h"

#include "files/LayerPlausibility.h"
#include "files/SaveChecks.h"
#include "files/WorkAhead.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <unordered_set>

namespace strativo {

namespace {

std::string Quoted(const std::string& name) {
    return " \"" + name + "\"";
}

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// The codes of a library's materials that layers can have. Looked up for every layer.
class MaterialCodes {
public:
    explicit MaterialCodes(const MaterialLibrary& library)
        : isThere(std::numeric_limits<std::int16_t>::max() + 1) {
        const int count = MaterialCount(library);
        for (int slot = 1; slot <= count; ++slot) {
            const double code = library[slot].code;
            if (code >= 0 && code < static_cast<double>(isThere.size()) && code == std::floor(code))
                isThere[static_cast<std::size_t>(code)] = true;
        }
    }

    bool Has(std::int16_t code) const {
        return code >= 0 && isThere[static_cast<std::size_t>(code)];
    }

private:
    std::vector<bool> isThere;
};

class ConstructionChecks {
public:
    explicit ConstructionChecks(const Project& source)
        : project(source), standardCodes(source.standardLibrary), userCodes(source.userLibrary) {
        for (const int number : ConstructionsInUse(source))
            numbers.push_back(number);
        LookForNames();
    }

    /// Large projects are looked at by several processors.
    std::vector<Finding> Run() const {
        constexpr std::size_t each = 512;
        const std::size_t pieces = (numbers.size() + each - 1) / each;
        const auto check = [this](std::size_t piece) {
            return FindingsIn(piece * each, std::min((piece + 1) * each, numbers.size()));
        };
        WorkAhead<std::vector<Finding>> work(pieces, check, HelpingThreads(), pieces);
        std::vector<Finding> findings;
        for (std::size_t piece = 0; piece < pieces; ++piece)
            for (Finding& finding : work.Take(piece))
                findings.push_back(std::move(finding));
        return findings;
    }

private:
    /// Notes for each construction the first one of the same name.
    void LookForNames() {
        std::unordered_map<std::string, int> numbersByName(numbers.size());
        for (const int number : numbers)
            firstOfName.push_back(
                numbersByName
                    .emplace(LowerCase(Trimmed(project.constructions[number].name)), number)
                    .first->second);
    }

    std::vector<Finding> FindingsIn(std::size_t first, std::size_t end) const {
        std::vector<Finding> findings;
        for (std::size_t index = first; index < end; ++index)
            CheckConstruction(index, findings);
        return findings;
    }

    void CheckConstruction(std::size_t index, std::vector<Finding>& findings) const {
        const int number = numbers[index];
        const Construction& construction = project.constructions[number];
        const auto add = [&](const char* rule, const std::string& text, int layer = 0) {
            findings.push_back(FindingAt(rule, number, text, layer));
        };
        if (HasZeroThickness(construction))
            add("zero-thickness", "at least one zero thickness");
        if (HasZeroAbsorption(construction))
            add("zero-absorption", "a total absorption equal to zero");
        if (LayerCount(construction) == 0)
            add("no-layers", "no layers");
        if (firstOfName[index] != number)
            add("duplicate-name",
                "construction" + SignPositionNumber(firstOfName[index]) + " has this name too");
        for (const BrokenRule& rule : RulesBrokenByConstruction(construction))
            add(rule.rule, rule.text);
        for (const int slot : FilledSlots(construction)) {
            const Layer& layer = construction.layers[slot];
            for (const BrokenRule& rule :
                 RulesBrokenByLayer(layer, construction.type, IsLinked(layer)))
                add(rule.rule, rule.text, slot);
        }
    }

    Finding FindingAt(const char* rule, int number, const std::string& text, int layer) const {
        const std::string& name = project.constructions[number].name;
        std::string place;
        if (layer > 0)
            place = ", layer" + SignPositionNumber(layer);
        return {.rule = rule,
                .construction = number,
                .layer = layer,
                .name = name,
                .text = "Construction" + SignPositionNumber(number) + Quoted(name) + place + ": "
                        + text};
    }

    bool IsLinked(const Layer& layer) const {
        const bool user = layer.library == userLibraryNumber;
        return (user ? userCodes : standardCodes).Has(layer.materialCode);
    }

    const Project& project;
    const MaterialCodes standardCodes;
    const MaterialCodes userCodes;
    std::vector<int> numbers;     ///< of the constructions in use
    std::vector<int> firstOfName; ///< for each of them
};

struct TablePlace {
    int row = 0; ///< 0 for an ordinary type
    int value = 1;

    std::string Text() const {
        if (row > 0)
            return "in row" + SignPositionNumber(row) + ", column" + SignPositionNumber(value);
        if (value == 1)
            return "for diffuse light";
        return "at" + SignPositionNumber(IncidenceAngle(value)) + " degrees";
    }
};

/// Calls check(place, a, b) with the values of both rows at each place, until it returns false.
template <class Row, class Check>
bool CheckRows(int rowNumber, const Row& a, const Row& b, Check check) {
    for (int value = Row::first; value <= Row::last; ++value)
        if (!check(TablePlace{rowNumber, value}, a[value], b[value]))
            return false;
    return true;
}

template <class Check>
bool CheckPlaces(const AngularValues& a, const AngularValues& b, Check check) {
    return CheckRows(0, a, b, check);
}

template <class Check>
bool CheckPlaces(const AngularTable& a, const AngularTable& b, Check check) {
    for (int row = AngularTable::first; row <= AngularTable::last; ++row)
        if (!CheckRows(row, a[row], b[row], check))
            return false;
    return true;
}

template <class Glass>
class GlassChecks {
public:
    GlassChecks(const NumberedList<Glass>& source, const char* kindName,
                std::vector<Finding>& target)
        : types(source), kind(kindName), findings(target) {}

    void Run() {
        for (const int number : NamedGlassTypes(types)) {
            const Glass& type = types[number];
            if (!names.insert(type.name).second)
                Add("duplicate-glass-name", number, "an earlier one has this name too");
            CheckRange(number, "transmission", type.transmission);
            CheckRange(number, "absorption", type.absorption);
            if (type.hasDiffusion)
                CheckRange(number, "diffusion", type.diffusion);
            CheckBalance(number, type);
        }
    }

private:
    void Add(const char* rule, int number, const std::string& text) {
        const std::string& name = types[number].name;
        findings.push_back(
            {.rule = rule,
             .glassType = number,
             .name = name,
             .text = kind + SignPositionNumber(number) + Quoted(name) + ": " + text});
    }

    template <class Values>
    void CheckRange(int number, const std::string& table, const Values& values) {
        CheckPlaces(values, values, [&](const TablePlace& place, float value, float) {
            if (value < 0 || value > 1)
                Add("glass-value-range", number,
                    table + " " + place.Text() + " is " + FormatGeneral(AsDecimal(value)));
            return true;
        });
    }

    void CheckBalance(int number, const Glass& type) {
        CheckPlaces(type.transmission, type.absorption,
                    [&](const TablePlace& place, float transmission, float absorption) {
                        // Of the decimals, so that 0.6 and 0.4 give exactly 1.
                        const double sum = AsDecimal(transmission) + AsDecimal(absorption);
                        if (sum > 1)
                            Add("glass-energy-balance", number,
                                "transmission and absorption " + place.Text() + " add up to "
                                    + FormatNumber(sum, "0.0######"));
                        return sum <= 1;
                    });
    }

    const NumberedList<Glass>& types;
    const std::string kind;
    std::vector<Finding>& findings;
    std::unordered_set<std::string> names;
};

} // namespace

std::vector<Finding> FindingsOf(const Project& project) {
    std::vector<Finding> findings = ConstructionChecks(project).Run();
    GlassChecks(project.glassTypes, "Glass type", findings).Run();
    GlassChecks(project.glassTypes2D, "Two-dimensional glass type", findings).Run();
    return findings;
}

std::string CurrentLayerFinding(const Project& project) {
    if (!InUse(project, project.currentConstruction))
        return "";
    const Construction& construction = project.constructions[project.currentConstruction];
    const int slot = SlotOfLayer(construction, construction.currentLayer);
    if (slot == 0)
        return "";
    const Layer& layer = construction.layers[slot];
    const MaterialLibrary& library = Library(project, layer.library);
    std::string text;
    for (const BrokenRule& rule : RulesBrokenByLayer(
             layer, construction.type, MaterialCodes(library).Has(layer.materialCode)))
        text += (text.empty() ? "Layer" + SignPositionNumber(slot) + ": " : "; ") + rule.text;
    return text;
}

} // namespace strativo
