#include "cli/ThermalCsv.h"

#include "calc/DynamicCharacteristics.h"
#include "cli/TextOutput.h"
#include "exchange/CsvText.h"
#include "text/Format.h"

#include <ostream>

namespace strativo {

namespace {

constexpr double joulesPerKilojoule = 1000;

/// The columns between those that identify a row and the one with the reason.
constexpr std::size_t figureColumns = 22;

/// The figures of a row, each with the comma before it.
class Figures {
public:
    void Add(std::optional<double> value) {
        text += ',';
        if (value)
            text += FormatGeneral(*value);
    }
    void AddSums(const LayerSums& sums) {
        Add(sums.thickness);
        Add(sums.mass);
        Add(sums.heatCapacity / joulesPerKilojoule);
        Add(sums.resistance);
    }
    void AddSteady(const SteadyState& steady, const LayerSums& sums) {
        Add(steady.resistance);
        Add(steady.transmittance);
        Add(1 / sums.resistance);
        Add(steady.heatFlux);
        Add(steady.OutsideSurface().temperature);
        Add(steady.InsideSurface().temperature);
        Add(steady.temperatureFactor);
    }
    void AddDynamics(const DynamicCharacteristics& dynamic) {
        for (const SideCharacteristics& side : {dynamic.inside, dynamic.outside}) {
            Add(side.admittance);
            Add(side.lead);
        }
        Add(dynamic.periodicTransmittance);
        Add(dynamic.periodicLag);
        Add(dynamic.decrementFactor);
        Add(dynamic.inside.heatCapacity / joulesPerKilojoule);
        Add(dynamic.outside.heatCapacity / joulesPerKilojoule);
        Add(dynamic.surfaceFactor);
        Add(dynamic.surfaceLag);
    }
    const std::string& Text() const { return text; }

private:
    std::string text;
};

std::string FiguresOf(const ThermalLayers& layers, const ThermalConditions& conditions,
                      HeatFlow flow) {
    const Films films = conditions.FilmsFor(flow);
    const LayerSums sums = SumsOf(layers);
    Figures figures;
    figures.AddSums(sums);
    figures.AddSteady(SteadyStateOf(layers, films, conditions.air), sums);
    figures.AddDynamics(DynamicCharacteristicsOf(layers, films));
    return figures.Text();
}

} // namespace

void WriteThermalCsvHead(std::ostream& out) {
    out << "file,construction,name,type,flow,rsi,rse,temperature_inside,temperature_outside,"
           "thickness_mm,mass,heat_capacity,layer_resistance,resistance,u_value,"
           "u_value_without_films,heat_flux,temperature_outside_surface,"
           "temperature_inside_surface,temperature_factor,y_inside,y_inside_lead_h,y_outside,"
           "y_outside_lead_h,y_periodic,y_periodic_lag_h,decrement_factor,kappa_inside,"
           "kappa_outside,surface_factor,surface_factor_lag_h,reason\r\n";
}

void WriteThermalCsvRows(std::ostream& out, const Project& project, const std::string& file,
                         const ThermalChoice& choice) {
    const AirTemperatures air = choice.conditions.air;
    for (const int number : ConstructionsInUse(project)) {
        const Construction& construction = project.constructions[number];
        const auto [layers, reason] = ThermalLayersOf(construction, choice.conditions.firstLayer);
        for (const HeatFlow flow : choice.flows) {
            const Films films = choice.conditions.FilmsFor(flow);
            out << CsvCell(ShownPath(file)) << ',' << number << ','
                << CsvCell(ShownText(construction.name)) << ',' << construction.type << ','
                << FlowName(flow) << ',' << FormatGeneral(films.inside) << ','
                << FormatGeneral(films.outside) << ',' << FormatGeneral(air.inside) << ','
                << FormatGeneral(air.outside)
                << (reason ? std::string(figureColumns, ',')
                           : FiguresOf(layers, choice.conditions, flow))
                << ',' << ReasonText(reason) << "\r\n";
        }
    }
}

} // namespace strativo
