#include "calc/CavityTypes.h"
#include "calc/DynamicCharacteristics.h"
#include "calc/LayerList.h"
#include "calc/UValue.h"
#include "cli/ReportParts.h"
#include "draw/Section.h"
#include "draw/Svg.h"
#include "draw/TemperatureAxis.h"
#include "text/Format.h"

#include <cmath>
#include <functional>
#include <ostream>

namespace strativo {

namespace {

constexpr char transmittanceUnit[] = "W/m&sup2;K";
constexpr char resistanceUnit[] = "m&sup2;K/W";
constexpr char heatCapacityUnit[] = "kJ/m&sup2;K";
constexpr double joulesPerKilojoule = 1000;

std::string Sum(double value) {
    return std::isfinite(value) ? FormatNumber(value, "0.0") : "n/a";
}

/// Sums per square metre.
struct ArealSums {
    double mass = 0;         ///< kg/m2
    double heatCapacity = 0; ///< J/m2 C
};

ArealSums ArealSumsOf(const Layer& layer) {
    if (layer.conductivity < 0)
        return {};
    const double mass = layer.thickness / 1000 * layer.density;
    return {mass, mass * layer.specificHeat};
}

class ConstructionReport {
public:
    ConstructionReport(std::ostream& stream, const Project& project, int itsNumber,
                       const ReportDetails& itsDetails)
        : out(stream), construction(project.constructions[itsNumber]),
          comments(project.comments.constructions.Of(itsNumber)), number(itsNumber),
          details(itsDetails), flow(itsDetails.flows.front()),
          thermal(ThermalLayersOf(construction, itsDetails.conditions.firstLayer)) {
        if (!thermal.reason)
            steady = SteadyStateOf(thermal.layers, Conditions().FilmsFor(flow), Conditions().air);
    }

    void Write() {
        out << "<section id=\"construction-" << number << "\">\n<h2><span class=\"kind\">"
            << (IsTransparent() ? "Transparent" : "Opaque") << "</span>" << number << ". "
            << ReportText(construction.name) << "</h2>\n";
        WriteReportComments(out, comments);
        WriteFigures();
        if (LayerCount(construction) > 0) {
            out << SvgElement(DrawSection(construction, Conditions(), flow), "section");
            WriteLayers();
        }
        if (steady)
            WriteCharacteristics();
        else if (LayerCount(construction) == 0)
            out << "<p class=\"note\">Thermal characteristics are not available: "
                << ReasonText(thermal.reason) << ".</p>\n";
        out << "</section>\n";
    }

private:
    const ThermalConditions& Conditions() const { return details.conditions; }
    bool IsTransparent() const { return construction.type == transparentType; }

    void WriteFigure(const char* label, const std::string& value, const char* unit) {
        out << "<div><dt>" << label << "</dt><dd>" << value << " <span class=\"unit\">" << unit
            << "</span></dd></div>\n";
    }

    void WriteFigures() {
        out << "<dl class=\"figures\">\n";
        WriteFigure("Thickness", FormatNumber(KnownThickness(construction), "0.0"),
                    HasUnknownWidth(construction) ? "mm + cavity" : "mm");
        if (steady) {
            const LayerSums sums = SumsOf(thermal.layers);
            WriteFigure("Mass", FormatNumber(sums.mass, "0.0"), "kg/m&sup2;");
            WriteFigure("R of the layers", FormatNumber(sums.resistance, "0.000"), resistanceUnit);
            WriteFigure("U-value", FormatNumber(steady->transmittance, "0.000"), transmittanceUnit);
        }
        WriteFigure("Indicative U-value", UValueText(construction), transmittanceUnit);
        out << "</dl>\n";
    }

    void WriteLayers() {
        out << "<table class=\"layers\">\n<thead><tr><th></th><th class=\"text\">Layer</th>";
        WriteHead("Thickness", "mm");
        WriteHead("Conductivity", "W/mK");
        WriteHead("R", resistanceUnit);
        WriteHead("Mass", "kg/m&sup2;");
        WriteHead("Heat capacity", heatCapacityUnit);
        if (steady)
            WriteHead("Inner face", "&deg;C");
        if (IsTransparent())
            WriteHead("Solar absorption", "");
        out << "</tr></thead>\n<tbody>\n";
        ArealSums total;
        for (const int slot : FilledSlots(construction)) {
            const Layer& layer = construction.layers[slot];
            const ArealSums sums = ArealSumsOf(layer);
            total.mass += sums.mass;
            total.heatCapacity += sums.heatCapacity;
            WriteLayer(layer, slot, sums);
        }
        out << "</tbody>\n";
        WriteTotal(total);
        out << "</table>\n";
    }

    void WriteHead(const char* text, const char* unit) {
        out << "<th>" << text << "<br><span class=\"unit\">" << unit << "</span></th>";
    }

    void WriteCell(const std::string& text) { out << "<td>" << text << "</td>"; }

    void WriteLayer(const Layer& layer, int slot, const ArealSums& sums) {
        const bool cavity = layer.conductivity < 0;
        const float resistance = LayerListResistance(layer);
        out << "<tr><td>" << slot << "</td><td class=\"text\">" << ColourKey(KindOf(layer))
            << ReportText(layer.name) << "</td>";
        WriteCell(layer.conductivity == resistanceCavity ? "unknown"
                                                         : FormatNumber(layer.thickness, "0.0"));
        WriteCell(cavity ? "" : FormatNumber(layer.conductivity, "0.000"));
        WriteCell(resistance == 0 ? "n/a" : FormatNumber(resistance, "0.000"));
        WriteCell(cavity ? "" : Sum(sums.mass));
        WriteCell(cavity ? "" : Sum(sums.heatCapacity / joulesPerKilojoule));
        if (steady)
            WriteCell(TemperatureText(InnerFace(slot)));
        if (IsTransparent())
            WriteCell(AbsorptionText(layer.absorption));
        out << "</tr>\n";
    }

    double InnerFace(int slot) const {
        for (const TemperaturePoint& point : steady->points)
            if (point.slot == slot)
                return point.temperature;
        return Conditions().air.inside;
    }

    void WriteTotal(const ArealSums& total) {
        out << "<tfoot><tr><td></td><td class=\"text\">Sum</td>";
        WriteCell(FormatNumber(KnownThickness(construction), "0.0"));
        WriteCell("");
        WriteCell(steady ? FormatNumber(SumsOf(thermal.layers).resistance, "0.000") : "");
        WriteCell(Sum(total.mass));
        WriteCell(Sum(total.heatCapacity / joulesPerKilojoule));
        if (steady || IsTransparent())
            WriteCell("");
        out << "</tr></tfoot>\n";
    }

    void WriteCharacteristics() {
        out << "<div class=\"pair\">\n<div>\n";
        WriteSteadyState();
        out << "</div>\n<div>\n";
        WriteDynamics();
        out << "</div>\n</div>\n";
        WriteNotes();
    }

    void WriteSteadyState() {
        out << "<h3>Surface resistances and U-values</h3>\n<table>\n<thead><tr>"
               "<th class=\"text\">Heat flow</th>";
        WriteHead("R<sub>si</sub> inside", resistanceUnit);
        WriteHead("R<sub>se</sub> outside", resistanceUnit);
        WriteHead("R total", resistanceUnit);
        WriteHead("U", transmittanceUnit);
        out << "</tr></thead>\n<tbody>\n";
        for (const HeatFlow each : heatFlows) {
            const Films films = Conditions().FilmsFor(each);
            const SteadyState state = SteadyStateOf(thermal.layers, films, Conditions().air);
            out << "<tr" << (each == flow ? " class=\"chosen\"" : "") << "><th class=\"text\">"
                << FlowName(each) << "</th>";
            WriteCell(FormatNumber(films.inside, "0.00#"));
            WriteCell(FormatNumber(films.outside, "0.00#"));
            WriteCell(FormatNumber(state.resistance, "0.000"));
            WriteCell(FormatNumber(state.transmittance, "0.000"));
            out << "</tr>\n";
        }
        out << "</tbody>\n</table>\n<p class=\"note\">In the drawing: heat flow " << FlowName(flow)
            << ", inside " << TemperatureText(Conditions().air.inside) << "&nbsp;&deg;C, outside "
            << TemperatureText(Conditions().air.outside)
            << "&nbsp;&deg;C: " << FormatNumber(steady->heatFlux, "0.00")
            << " W/m&sup2;; inside surface " << TemperatureText(steady->InsideSurface().temperature)
            << "&nbsp;&deg;C, f<sub>Rsi</sub> " << FormatNumber(steady->temperatureFactor, "0.000")
            << "; outside surface " << TemperatureText(steady->OutsideSurface().temperature)
            << "&nbsp;&deg;C.</p>\n";
    }

    using Shown = std::function<std::string(const DynamicCharacteristics&)>;

    /// A row with a value for each direction of flow.
    void WriteRow(const char* label, const char* unit, const Shown& shown) {
        out << "<tr><th class=\"text\">" << label << " <span class=\"unit\">" << unit
            << "</span></th>";
        for (const HeatFlow each : details.flows)
            WriteCell(shown(DynamicCharacteristicsOf(thermal.layers, Conditions().FilmsFor(each))));
        out << "</tr>\n";
    }

    void WriteDynamics() {
        out << "<h3>Temperatures that swing over 24 hours</h3>\n<table>\n<thead><tr>"
               "<th class=\"text\">Heat flow</th>";
        for (const HeatFlow each : details.flows)
            out << "<th>" << FlowName(each) << "</th>";
        out << "</tr></thead>\n<tbody>\n";
        WriteSide("inside", &DynamicCharacteristics::inside);
        WriteSide("outside", &DynamicCharacteristics::outside);
        WriteRow("Periodic transmittance", transmittanceUnit, [](const auto& swing) {
            return FormatNumber(swing.periodicTransmittance, "0.000");
        });
        WriteRow("Time lag", "h", [](const auto& swing) {
            return swing.periodicLag ? FormatNumber(*swing.periodicLag, "0.0") : notAvailable;
        });
        WriteRow("Decrement factor f", "",
                 [](const auto& swing) { return FormatNumber(swing.decrementFactor, "0.000"); });
        WriteRow("Surface factor F (lag)", "(h)", [](const auto& swing) {
            return FormatNumber(swing.surfaceFactor, "0.00") + " ("
                   + FormatNumber(swing.surfaceLag, "0.0") + ")";
        });
        out << "</tbody>\n</table>\n";
    }

    void WriteSide(const std::string& name, SideCharacteristics DynamicCharacteristics::*side) {
        WriteRow(("Admittance " + name + " (lead)").c_str(), "W/m&sup2;K (h)",
                 [side](const auto& swing) {
                     return FormatNumber((swing.*side).admittance, "0.00") + " ("
                            + FormatNumber((swing.*side).lead, "0.0") + ")";
                 });
        WriteRow(("Heat capacity &kappa; " + name).c_str(), heatCapacityUnit,
                 [side](const auto& swing) {
                     return FormatNumber((swing.*side).heatCapacity / joulesPerKilojoule, "0.0");
                 });
    }

    void WriteNotes() {
        for (const ThermalLayer& layer : thermal.layers)
            if (layer.withoutHeatStorage)
                out << "<p class=\"note\">Layer " << layer.slot
                    << " stores no heat: its density or specific heat is 0.</p>\n";
    }

    std::ostream& out;
    const Construction& construction;
    const CommentLines& comments;
    const int number;
    const ReportDetails& details;
    const HeatFlow flow;
    const LayersOrReason thermal;
    std::optional<SteadyState> steady; ///< if thermal figures are available
};

} // namespace

void WriteReportConstruction(std::ostream& out, const Project& project, int number,
                             const ReportDetails& details) {
    ConstructionReport(out, project, number, details).Write();
}

} // namespace strativo
