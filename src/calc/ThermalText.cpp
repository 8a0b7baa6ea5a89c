#include "calc/ThermalText.h"

#include "calc/DynamicCharacteristics.h"
#include "text/Format.h"

#include <algorithm>

namespace strativo {

namespace {

constexpr double joulesPerKilojoule = 1000;
constexpr char notAvailable[] = "n/a";

/// The number formatted with the pattern, but without a minus sign if only zeros are left of it.
std::string Number(double value, NumberPattern pattern) {
    std::string text = FormatNumber(value, pattern);
    if (text[0] == '-' && text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, 1);
    return text;
}

std::string Column(double value, NumberPattern pattern, std::size_t width = 7) {
    return RightField(Number(value, pattern), width);
}

class ThermalTable {
public:
    ThermalTable(const Construction& source, const ThermalConditions& chosen,
                 const ThermalLayers& ofSource)
        : construction(source), conditions(chosen), layers(ofSource), sums(SumsOf(ofSource)) {}

    std::vector<std::string> Lines(const std::vector<HeatFlow>& flows) {
        lines.reserve(linesBesideLayers + flows.size() * linesPerFlow);
        AddSums();
        AddTransmittances();
        for (const HeatFlow flow : flows) {
            AddTemperatures(flow);
            AddDynamics(flow);
        }
        AddNotes();
        return std::move(lines);
    }

private:
    static constexpr std::size_t linesBesideLayers = 6;
    static constexpr std::size_t linesPerFlow = 5 + maxLayers;

    void AddSums() {
        const std::string thickness = sums.thickness ? Number(*sums.thickness, "0.0") + " mm"
                                                     : std::string("thickness ") + notAvailable;
        lines.push_back("  " + thickness + "   " + Number(sums.mass, "0.0") + " kg/m2   "
                        + Number(sums.heatCapacity / joulesPerKilojoule, "0.0")
                        + " kJ/m2K   R of the layers " + Number(sums.resistance, "0.000")
                        + " m2K/W   U without films " + Number(1 / sums.resistance, "0.000")
                        + " W/m2K");
    }

    void AddTransmittances() {
        constexpr std::size_t nameWidth = 11;
        lines.emplace_back("  Heat flow      Rsi    Rse      R      U");
        for (const HeatFlow flow : heatFlows) {
            const Films films = conditions.FilmsFor(flow);
            const double resistance = films.inside + sums.resistance + films.outside;
            lines.push_back("  " + LeftField(FlowName(flow), nameWidth, nameWidth)
                            + Column(films.inside, "0.00#") + Column(films.outside, "0.00#")
                            + Column(resistance, "0.000") + Column(1 / resistance, "0.000"));
        }
    }

    void AddTemperatures(HeatFlow flow) {
        const SteadyState steady = SteadyStateOf(layers, conditions.FilmsFor(flow), conditions.air);
        std::string name = FlowName(flow);
        name[0] = static_cast<char>(name[0] - 'a' + 'A');
        lines.push_back("  " + name + ", inside " + Number(conditions.air.inside, "0.0")
                        + ", outside " + Number(conditions.air.outside, "0.0") + ": "
                        + Number(steady.heatFlux, "0.00") + " W/m2, fRsi "
                        + Number(steady.temperatureFactor, "0.000"));
        constexpr std::size_t temperatureEnd = 56;
        constexpr char outside[] = "Outside surface";
        lines.push_back(
            "    " + LeftField(outside, sizeof outside, sizeof outside)
            + Column(steady.OutsideSurface().temperature, "0.0", temperatureEnd - sizeof outside));
        for (int number = 1; number < steady.pointCount; ++number)
            AddLayer(*(layers.begin() + number - 1),
                     steady.points.at(static_cast<std::size_t>(number)).temperature);
        lines.back() += "  Inside surface";
    }

    /// A layer with the temperature of its inner face.
    void AddLayer(const ThermalLayer& layer, double temperature) {
        constexpr std::size_t slotWidth = 5;
        constexpr std::size_t nameWidth = 31;
        constexpr std::size_t temperatureWidth = 9;
        const std::string thickness =
            layer.thickness ? Number(*layer.thickness, "0.0") : std::string(notAvailable);
        lines.push_back(RightField(std::to_string(layer.slot), slotWidth) + ' '
                        + LeftField(construction.layers[layer.slot].name, nameWidth, nameWidth)
                        + RightField(' ' + thickness, 7) + Column(layer.resistance, "0.000")
                        + Column(temperature, "0.0", temperatureWidth));
    }

    void AddDynamics(HeatFlow flow) {
        const auto dynamic = DynamicCharacteristicsOf(layers, conditions.FilmsFor(flow));
        lines.push_back("  24 h   Inside   " + Side(dynamic.inside) + "   F "
                        + Number(dynamic.surfaceFactor, "0.00") + "  lag "
                        + Number(dynamic.surfaceLag, "0.0") + " h");
        lines.push_back("         Outside  " + Side(dynamic.outside));
        const std::string lag = dynamic.periodicLag ? Number(*dynamic.periodicLag, "0.0") + " h"
                                                    : std::string(notAvailable);
        lines.push_back("         Through  Y12 " + Number(dynamic.periodicTransmittance, "0.000")
                        + " W/m2K  lag " + lag + "   f "
                        + Number(dynamic.decrementFactor, "0.000"));
    }

    static std::string Side(const SideCharacteristics& side) {
        return "Y " + Number(side.admittance, "0.00") + " W/m2K  lead " + Number(side.lead, "0.0")
               + " h   kappa " + Number(side.heatCapacity / joulesPerKilojoule, "0.0") + " kJ/m2K";
    }

    void AddNotes() {
        for (const ThermalLayer& layer : layers)
            if (layer.withoutHeatStorage)
                lines.push_back("  Layer " + std::to_string(layer.slot)
                                + " stores no heat: its density or specific heat is 0");
    }

    const Construction& construction;
    const ThermalConditions& conditions;
    const ThermalLayers& layers;
    LayerSums sums;
    std::vector<std::string> lines;
};

} // namespace

std::vector<std::string> ThermalLines(const Construction& construction,
                                      const ThermalConditions& conditions,
                                      const std::vector<HeatFlow>& flows) {
    const auto [layers, reason] = ThermalLayersOf(construction, conditions.firstLayer);
    if (reason)
        return {"  not available: " + ReasonText(reason)};
    return ThermalTable(construction, conditions, layers).Lines(flows);
}

} // namespace strativo
