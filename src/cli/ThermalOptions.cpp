#include "cli/ThermalOptions.h"

#include "text/Format.h"
#include "text/Windows1252.h"

#include <array>

namespace strativo {

namespace {

/// An option whose value is a number within a range.
struct NumberOption {
    const char* name;
    std::string Invocation::*text;
    double lowest;
    double highest;
    void (*set)(ThermalConditions& conditions, double value);
};

constexpr std::array<NumberOption, 4> numberOptions = {{
    {"--inside", &Invocation::inside, lowestTemperature, highestTemperature,
     [](ThermalConditions& conditions, double value) { conditions.air.inside = value; }},
    {"--outside", &Invocation::outside, lowestTemperature, highestTemperature,
     [](ThermalConditions& conditions, double value) { conditions.air.outside = value; }},
    {"--rsi", &Invocation::rsi, 0, largestFilm,
     [](ThermalConditions& conditions, double value) { conditions.insideFilm = value; }},
    {"--rse", &Invocation::rse, 0, largestFilm,
     [](ThermalConditions& conditions, double value) { conditions.outsideFilm = value; }},
}};

struct FlowOption {
    const char* text;
    HeatFlow flow;
};
constexpr std::array<FlowOption, 3> flowOptions = {
    {{"horizontal", HeatFlow::horizontal}, {"up", HeatFlow::upward}, {"down", HeatFlow::downward}}};

std::vector<HeatFlow> FlowsOf(const std::string& text) {
    std::vector<HeatFlow> flows;
    for (const FlowOption& option : flowOptions)
        if (text == option.text || text == "all")
            flows.push_back(option.flow);
    return flows;
}

std::optional<double> NumberOf(const NumberOption& option, const std::string& text) {
    return NumberWithin(text, option.lowest, option.highest);
}

} // namespace

std::string ThermalFault(const Invocation& call) {
    for (const NumberOption& option : numberOptions) {
        const std::string& text = call.*option.text;
        if (!text.empty() && !NumberOf(option, text))
            return std::string(option.name) + " needs a number from " + FormatGeneral(option.lowest)
                   + " to " + FormatGeneral(option.highest) + ", not " + PathToUtf8(text);
    }
    if (FlowsOf(call.flow).empty())
        return "--flow knows no direction " + PathToUtf8(call.flow);
    if (call.firstLayer != "outside" && call.firstLayer != "inside")
        return "--first-layer knows no side " + PathToUtf8(call.firstLayer);
    return "";
}

ThermalChoice ThermalChoiceOf(const Invocation& call) {
    ThermalChoice choice;
    for (const NumberOption& option : numberOptions)
        if (const auto value = NumberOf(option, call.*option.text))
            option.set(choice.conditions, *value);
    choice.conditions.firstLayer =
        call.firstLayer == "inside" ? FirstLayer::inside : FirstLayer::outside;
    choice.flows = FlowsOf(call.flow);
    return choice;
}

} // namespace strativo
