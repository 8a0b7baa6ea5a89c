#include "files/Findings.h"

#include "files/LayerPlausibility.h"
#include "files/SaveChecks.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

#include <algorithm>
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

using MaterialCodes = std::unordered_set<double>;

MaterialCodes CodesOf(const MaterialLibrary& library) {
    MaterialCodes codes;
    const int count = MaterialCount(library);
    for (int slot = 1; slot <= count; ++slot)
        codes.insert(library[slot].code);
    return codes;
}

class ConstructionChecks {
public:
    ConstructionChecks(const Project& source, std::vector<Finding>& target)
        : project(source), findings(target), standardCodes(CodesOf(source.standardLibrary)),
          userCodes(CodesOf(source.userLibrary)) {}

    void Run() {
        const std::vector<int> zeroThickness = ZeroThicknessConstructions(project);
        const std::vector<int> zeroAbsorption = ZeroAbsorptionConstructions(project);
        for (const int number : ConstructionsInUse(project)) {
            if (std::binary_search(zeroThickness.begin(), zeroThickness.end(), number))
                Add("zero-thickness", number, "at least one zero thickness");
            if (std::binary_search(zeroAbsorption.begin(), zeroAbsorption.end(), number))
                Add("zero-absorption", number, "a total absorption equal to zero");
            if (LayerCount(project.constructions[number]) == 0)
                Add("no-layers", number, "no layers");
            CheckName(number);
            for (const BrokenRule& rule : RulesBrokenByConstruction(project.constructions[number]))
                Add(rule.rule, number, rule.text);
            CheckLayers(number);
        }
    }

private:
    void Add(const char* rule, int number, const std::string& text, int layer = 0) {
        const std::string& name = project.constructions[number].name;
        std::string place;
        if (layer > 0)
            place = ", layer" + SignPositionNumber(layer);
        findings.push_back({.rule = rule,
                            .construction = number,
                            .layer = layer,
                            .name = name,
                            .text = "Construction" + SignPositionNumber(number) + Quoted(name)
                                    + place + ": " + text});
    }

    void CheckName(int number) {
        const auto [first, isNew] =
            numbersByName.emplace(LowerCase(Trimmed(project.constructions[number].name)), number);
        if (!isNew)
            Add("duplicate-name", number,
                "construction" + SignPositionNumber(first->second) + " has this name too");
    }

    void CheckLayers(int number) {
        const Construction& construction = project.constructions[number];
        for (const int slot : FilledSlots(construction)) {
            const Layer& layer = construction.layers[slot];
            const bool user = layer.library == userLibraryNumber;
            const bool linked = (user ? userCodes : standardCodes).contains(layer.materialCode);
            for (const BrokenRule& rule : RulesBrokenByLayer(layer, construction.type, linked))
                Add(rule.rule, number, rule.text, slot);
        }
    }

    const Project& project;
    std::vector<Finding>& findings;
    const MaterialCodes standardCodes;
    const MaterialCodes userCodes;
    std::unordered_map<std::string, int> numbersByName; ///< first type of each trimmed name
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
                        // Added as 32-bit floats, so that 0.6 and 0.4 give exactly 1.
                        const float sum = transmission + absorption;
                        if (sum > 1)
                            Add("glass-energy-balance", number,
                                "transmission and absorption " + place.Text() + " add up to "
                                    + FormatGeneral(AsDecimal(sum)));
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
    std::vector<Finding> findings;
    ConstructionChecks(project, findings).Run();
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
    for (const BrokenRule& rule : RulesBrokenByLayer(layer, construction.type,
                                                     CodesOf(library).contains(layer.materialCode)))
        text += (text.empty() ? "Layer" + SignPositionNumber(slot) + ": " : "; ") + rule.text;
    return text;
}

} // namespace strativo
