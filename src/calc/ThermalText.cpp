#include "calc/ThermalText.h"

#include "calc/DynamicCharacteristics.h"
#include "text/Format.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace strativo {

namespace {

constexpr double joulesPerKilojoule = 1000;
constexpr char notAvailable[] = "n/a";
constexpr std::size_t columnWidth = 7;

/// A number in a pattern, without a minus sign if only zeros are left of it.
struct Fixed {
    double value;
    NumberPattern pattern;
    std::size_t width = 0; ///< of its column, filled with blanks on the left; 0 for no column
};

/// Text cut to the width or filled with blanks on the right.
struct Left {
    std::string_view text;
    std::size_t width;
};

/// Text filled with blanks on the left.
struct Right {
    std::string_view text;
    std::size_t width;
};

/// Builds a line in a single allocation, since large files have hundreds of thousands of lines.
class TextLine {
public:
    TextLine() { text.reserve(usualLength); }

    TextLine& operator<<(std::string_view words) {
        text += words;
        return *this;
    }
    TextLine& operator<<(Left field) {
        const std::string_view shown = field.text.substr(0, field.width);
        return (*this << shown).Pad(field.width, shown.size());
    }
    TextLine& operator<<(Right field) { return Pad(field.width, field.text.size()) << field.text; }
    TextLine& operator<<(Fixed number) {
        std::array<char, longestNumber> digits;
        const char* const end = PutNumber(digits.data(), number.value, number.pattern);
        std::string_view shown(digits.data(), static_cast<std::size_t>(end - digits.data()));
        if (shown[0] == '-' && shown.find_first_not_of("-0.") == std::string_view::npos)
            shown.remove_prefix(1);
        if (number.width > 0 && shown.size() >= number.width)
            text += ' '; // otherwise it would be one number with that of the column before
        return *this << Right{shown, number.width};
    }

    std::string Take() { return std::move(text); }

private:
    static constexpr std::size_t usualLength = 100;

    TextLine& Pad(std::size_t width, std::size_t filled) {
        text.append(width - std::min(width, filled), ' ');
        return *this;
    }

    std::string text;
};

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

    void Add(TextLine& line) { lines.push_back(line.Take()); }

    void AddSums() {
        TextLine line;
        if (sums.thickness)
            line << "  " << Fixed{*sums.thickness, "0.0"} << " mm";
        else
            line << "  thickness " << notAvailable;
        line << "   " << Fixed{sums.mass, "0.0"} << " kg/m2   "
             << Fixed{sums.heatCapacity / joulesPerKilojoule, "0.0"} << " kJ/m2K   R of the layers "
             << Fixed{sums.resistance, "0.000"} << " m2K/W   U without films "
             << Fixed{1 / sums.resistance, "0.000"} << " W/m2K";
        Add(line);
    }

    void AddTransmittances() {
        constexpr std::size_t nameWidth = 11;
        lines.emplace_back("  Heat flow      Rsi    Rse      R      U");
        for (const HeatFlow flow : heatFlows) {
            const Films films = conditions.FilmsFor(flow);
            const double resistance = films.inside + sums.resistance + films.outside;
            TextLine line;
            line << "  " << Left{FlowName(flow), nameWidth}
                 << Fixed{films.inside, "0.00#", columnWidth}
                 << Fixed{films.outside, "0.00#", columnWidth}
                 << Fixed{resistance, "0.000", columnWidth}
                 << Fixed{1 / resistance, "0.000", columnWidth};
            Add(line);
        }
    }

    void AddTemperatures(HeatFlow flow) {
        const SteadyState steady = SteadyStateOf(layers, conditions.FilmsFor(flow), conditions.air);
        AddFlow(flow, steady);
        constexpr std::size_t temperatureEnd = 56;
        constexpr char outside[] = "Outside surface";
        TextLine surface;
        surface << "    " << Left{outside, sizeof outside}
                << Fixed{steady.OutsideSurface().temperature, "0.0",
                         temperatureEnd - sizeof outside};
        Add(surface);
        for (int number = 1; number < steady.pointCount; ++number)
            AddLayer(*(layers.begin() + number - 1),
                     steady.points.at(static_cast<std::size_t>(number)).temperature);
        lines.back() += "  Inside surface";
    }

    void AddFlow(HeatFlow flow, const SteadyState& steady) {
        std::string name = FlowName(flow);
        name[0] = static_cast<char>(name[0] - 'a' + 'A');
        TextLine line;
        line << "  " << name << ", inside " << Fixed{conditions.air.inside, "0.0"} << ", outside "
             << Fixed{conditions.air.outside, "0.0"} << ": " << Fixed{steady.heatFlux, "0.00"}
             << " W/m2, fRsi " << Fixed{steady.temperatureFactor, "0.000"};
        Add(line);
    }

    /// A layer with the temperature of its inner face.
    void AddLayer(const ThermalLayer& layer, double temperature) {
        constexpr std::size_t slotWidth = 5;
        constexpr std::size_t nameWidth = 31;
        constexpr std::size_t temperatureWidth = 9;
        TextLine line;
        line << Right{std::to_string(layer.slot), slotWidth} << " "
             << Left{construction.layers[layer.slot].name, nameWidth};
        if (layer.thickness)
            line << Fixed{*layer.thickness, "0.0", columnWidth};
        else
            line << Right{notAvailable, columnWidth};
        line << Fixed{layer.resistance, "0.000", columnWidth}
             << Fixed{temperature, "0.0", temperatureWidth};
        Add(line);
    }

    void AddDynamics(HeatFlow flow) {
        const auto dynamic = DynamicCharacteristicsOf(layers, conditions.FilmsFor(flow));
        TextLine inside;
        inside << "  24 h   Inside   ";
        AppendSide(inside, dynamic.inside);
        inside << "   F " << Fixed{dynamic.surfaceFactor, "0.00"} << "  lag "
               << Fixed{dynamic.surfaceLag, "0.0"} << " h";
        Add(inside);
        TextLine outside;
        outside << "         Outside  ";
        AppendSide(outside, dynamic.outside);
        Add(outside);
        AddThrough(dynamic);
    }

    static void AppendSide(TextLine& line, const SideCharacteristics& side) {
        line << "Y " << Fixed{side.admittance, "0.00"} << " W/m2K  lead " << Fixed{side.lead, "0.0"}
             << " h   kappa " << Fixed{side.heatCapacity / joulesPerKilojoule, "0.0"} << " kJ/m2K";
    }

    void AddThrough(const DynamicCharacteristics& dynamic) {
        TextLine line;
        line << "         Through  Y12 " << Fixed{dynamic.periodicTransmittance, "0.000"}
             << " W/m2K  lag ";
        if (dynamic.periodicLag)
            line << Fixed{*dynamic.periodicLag, "0.0"} << " h";
        else
            line << notAvailable;
        line << "   f " << Fixed{dynamic.decrementFactor, "0.000"};
        Add(line);
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
