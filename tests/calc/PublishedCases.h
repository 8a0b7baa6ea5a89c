#pragma once

#include "calc/DynamicCharacteristics.h"
#include "support/Samples.h"

#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace strativo {

/// A published construction with its published results, from tests/calc/thermal-published.json.
struct PublishedCase {
    nlohmann::json json;

    std::string Id() const { return json.at("id"); }
    bool IsInsideFirst() const { return json.at("construction").at("order") == "inside-first"; }
    Films GivenFilms() const {
        return {json.at("construction").at("rsi"), json.at("construction").at("rse")};
    }
    AirTemperatures Air() const {
        return {json.value("inside", AirTemperatures().inside),
                json.value("outside", AirTemperatures().outside)};
    }
    const nlohmann::json& Layers() const { return json.at("construction").at("layers"); }
};

inline std::vector<PublishedCase> PublishedCases() {
    std::vector<PublishedCase> cases;
    const auto file = nlohmann::json::parse(SourceFile("tests/calc/thermal-published.json"));
    for (const nlohmann::json& item : file.at("cases"))
        cases.push_back({item});
    return cases;
}

inline ThermalLayer ThermalLayerOf(const nlohmann::json& json, int slot) {
    ThermalLayer layer;
    layer.slot = slot;
    if (json.contains("resistance")) {
        layer.resistance = json.at("resistance");
        return layer;
    }
    const double thickness = json.at("thicknessMm");
    layer.thickness = thickness;
    layer.resistance = thickness / 1000 / json.at("conductivity").get<double>();
    layer.mass = thickness / 1000 * json.at("density").get<double>();
    layer.heatCapacity = layer.mass * json.at("specificHeat").get<double>();
    return layer;
}

/// The layers of the case from outside to inside, all figures as doubles.
inline ThermalLayers ThermalLayersOf(const PublishedCase& published) {
    ThermalLayers layers;
    const int count = static_cast<int>(published.Layers().size());
    for (int i = 0; i < count; ++i) {
        const int slot = published.IsInsideFirst() ? count - 1 - i : i;
        layers.Add(ThermalLayerOf(published.Layers().at(static_cast<std::size_t>(slot)), slot + 1));
    }
    return layers;
}

/// The figure that the key of a published result names.
inline double Figure(const std::string& key, const ThermalLayers& layers, Films films,
                     AirTemperatures air) {
    const LayerSums sums = SumsOf(layers);
    const SteadyState steady = SteadyStateOf(layers, films, air);
    const DynamicCharacteristics dynamic = DynamicCharacteristicsOf(layers, films);
    const std::string temperature = "temperature:";
    if (key.starts_with(temperature)) {
        const int place = std::stoi(key.substr(temperature.size()));
        return steady.points
            .at(static_cast<std::size_t>(place < 0 ? steady.pointCount + place : place))
            .temperature;
    }
    const std::map<std::string, double> figures = {
        {"transmittance", steady.transmittance},
        {"resistance", steady.resistance},
        {"heatFlux", steady.heatFlux},
        {"temperatureFactor", steady.temperatureFactor},
        {"mass", sums.mass},
        {"heatCapacity", sums.heatCapacity / 1000},
        {"insideAdmittance", dynamic.inside.admittance},
        {"outsideAdmittance", dynamic.outside.admittance},
        {"insideAdmittanceLead", dynamic.inside.lead},
        {"insideHeatCapacity", dynamic.inside.heatCapacity / 1000},
        {"outsideHeatCapacity", dynamic.outside.heatCapacity / 1000},
        {"periodicTransmittance", dynamic.periodicTransmittance},
        {"periodicTransmittanceLag", dynamic.periodicLag.value_or(-1)},
        {"decrementFactor", dynamic.decrementFactor},
    };
    return figures.at(key);
}

} // namespace strativo
