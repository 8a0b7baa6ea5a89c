#include "cli/ThermalJson.h"

#include "calc/DynamicCharacteristics.h"

namespace strativo {

namespace {

constexpr double joulesPerKilojoule = 1000;

Json JsonOf(const std::optional<double>& value) {
    return value ? Json(*value) : Json(nullptr);
}

Json JsonOf(Complex value) {
    return Json::array({value.real(), value.imag()});
}

Json JsonOf(const std::optional<MatrixElements>& matrix) {
    if (!matrix)
        return nullptr;
    return {{"z11", JsonOf(matrix->z11)},
            {"z12", JsonOf(matrix->z12)},
            {"z21", JsonOf(matrix->z21)},
            {"z22", JsonOf(matrix->z22)}};
}

Json JsonOfLayers(const ThermalLayers& layers) {
    Json array = Json::array();
    for (const ThermalLayer& layer : layers)
        array.push_back({{"slot", layer.slot},
                         {"resistance", layer.resistance},
                         {"mass", layer.mass},
                         {"heatCapacity", layer.heatCapacity / joulesPerKilojoule}});
    return array;
}

Json JsonOfSlotsWithoutStorage(const ThermalLayers& layers) {
    Json array = Json::array();
    for (const ThermalLayer& layer : layers)
        if (layer.withoutHeatStorage)
            array.push_back(layer.slot);
    return array;
}

/// The members that each direction of flow has.
Json JsonOfTransmittance(HeatFlow flow, Films films, const SteadyState& steady) {
    return {{"flow", FlowName(flow)},
            {"insideSurfaceResistance", films.inside},
            {"outsideSurfaceResistance", films.outside},
            {"resistance", steady.resistance},
            {"transmittance", steady.transmittance}};
}

Json JsonOfTemperatures(const SteadyState& steady) {
    Json array = Json::array();
    for (int number = 0; number < steady.pointCount; ++number) {
        const TemperaturePoint& point = steady.points.at(static_cast<std::size_t>(number));
        const char* place = number == 0                      ? "outsideSurface"
                            : number + 1 < steady.pointCount ? "interface"
                                                             : "insideSurface";
        array.push_back({{"place", place},
                         {"slot", point.slot},
                         {"depth", JsonOf(point.depth)},
                         {"resistance", point.resistance},
                         {"temperature", point.temperature}});
    }
    return array;
}

void AddDynamics(Json& json, const DynamicCharacteristics& dynamic) {
    json["heatTransferMatrix"] = JsonOf(dynamic.matrix);
    json["insideAdmittance"] = dynamic.inside.admittance;
    json["outsideAdmittance"] = dynamic.outside.admittance;
    json["periodicTransmittance"] = dynamic.periodicTransmittance;
    json["insideAdmittanceLead"] = dynamic.inside.lead;
    json["outsideAdmittanceLead"] = dynamic.outside.lead;
    json["periodicTransmittanceLag"] = JsonOf(dynamic.periodicLag);
    json["surfaceFactorLag"] = dynamic.surfaceLag;
    json["insideHeatCapacity"] = dynamic.inside.heatCapacity / joulesPerKilojoule;
    json["outsideHeatCapacity"] = dynamic.outside.heatCapacity / joulesPerKilojoule;
    json["decrementFactor"] = dynamic.decrementFactor;
    json["surfaceFactor"] = dynamic.surfaceFactor;
}

Json JsonOfFlow(const ThermalLayers& layers, const ThermalConditions& conditions, HeatFlow flow) {
    const Films films = conditions.FilmsFor(flow);
    const SteadyState steady = SteadyStateOf(layers, films, conditions.air);
    Json json = JsonOfTransmittance(flow, films, steady);
    json["heatFlux"] = steady.heatFlux;
    json["temperatureFactor"] = steady.temperatureFactor;
    json["temperatures"] = JsonOfTemperatures(steady);
    AddDynamics(json, DynamicCharacteristicsOf(layers, films));
    return json;
}

void AddFigures(Json& json, const ThermalLayers& layers, const ThermalChoice& choice) {
    const LayerSums sums = SumsOf(layers);
    json["thickness"] = JsonOf(sums.thickness);
    json["mass"] = sums.mass;
    json["heatCapacity"] = sums.heatCapacity / joulesPerKilojoule;
    json["layers"] = JsonOfLayers(layers);
    json["layersWithoutHeatStorage"] = JsonOfSlotsWithoutStorage(layers);
    json["layerResistance"] = sums.resistance;
    json["transmittanceWithoutFilms"] = 1 / sums.resistance;
    json["steady"] = Json::array();
    for (const HeatFlow flow : heatFlows) {
        const Films films = choice.conditions.FilmsFor(flow);
        json["steady"].push_back(
            JsonOfTransmittance(flow, films, SteadyStateOf(layers, films, choice.conditions.air)));
    }
    json["flows"] = Json::array();
    for (const HeatFlow flow : choice.flows)
        json["flows"].push_back(JsonOfFlow(layers, choice.conditions, flow));
}

} // namespace

const char* SideName(FirstLayer side) {
    return side == FirstLayer::outside ? "outside" : "inside";
}

Json JsonOfThermal(const Construction& construction, const ThermalChoice& choice) {
    const auto [layers, reason] = ThermalLayersOf(construction, choice.conditions.firstLayer);
    Json json = {{"available", !reason}, {"reason", ReasonText(reason)}};
    if (!reason)
        AddFigures(json, layers, choice);
    return json;
}

} // namespace strativo
