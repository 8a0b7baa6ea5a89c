#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/InputOutput.h"
#include "cli/JsonWriter.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "exchange/EpJson.h"

#include <algorithm>
#include <ostream>
#include <sstream>

namespace strativo {

namespace {

constexpr char roughness[] = "MediumRough"; // required by the format, but unknown here

Json JsonOf(const EpMaterial& material) {
    switch (material.kind) {
    case EpMaterialKind::massive:
        return {{"roughness", roughness},
                {"thickness", material.thickness},
                {"conductivity", material.conductivity},
                {"density", material.density},
                {"specific_heat", material.specificHeat}};
    case EpMaterialKind::noMass:
        return {{"roughness", roughness}, {"thermal_resistance", material.resistance}};
    case EpMaterialKind::airGap:
        return {{"thermal_resistance", material.resistance}};
    }
    return {};
}

Json JsonOf(const EpConstruction& construction) {
    Json json = {{"outside_layer", construction.layers.front()}};
    for (std::size_t i = 1; i < construction.layers.size(); ++i)
        json["layer_" + std::to_string(i + 1)] = construction.layers[i];
    return json;
}

void WriteMaterials(JsonWriter& writer, const EpModel& model, EpMaterialKind kind,
                    const char* object) {
    const auto isOfKind = [&](const EpMaterial& material) { return material.kind == kind; };
    if (std::none_of(model.materials.begin(), model.materials.end(), isOfKind))
        return;
    writer.Key(object);
    writer.Begin('{');
    for (const EpMaterial& material : model.materials)
        if (isOfKind(material))
            writer.Member(material.name, JsonOf(material));
    writer.End('}');
}

void WriteEpJson(std::ostream& out, const EpModel& model) {
    JsonWriter writer(out);
    writer.Begin('{');
    writer.Member("Version", {{"Version 1", {{"version_identifier", "23.2"}}}});
    WriteMaterials(writer, model, EpMaterialKind::massive, "Material");
    WriteMaterials(writer, model, EpMaterialKind::noMass, "Material:NoMass");
    WriteMaterials(writer, model, EpMaterialKind::airGap, "Material:AirGap");
    if (!model.constructions.empty()) {
        writer.Key("Construction");
        writer.Begin('{');
        for (const EpConstruction& construction : model.constructions)
            writer.Member(construction.name, JsonOf(construction));
        writer.End('}');
    }
    writer.End('}');
}

} // namespace

int Export(const Invocation& call, std::ostream& out, std::ostream& err) {
    Session session(call.operands[0], call, err);
    session.ReadToWrite();
    if (session.Failed())
        return exitFailure;
    const std::string path = call.output.empty() ? standardStream : call.output;
    if (session.WouldLoseLibrary(path, err))
        return exitWrongUsage;
    const EpModel model =
        MakeEpModel(session.project, {call.firstLayer == "inside", call.opaqueOnly});
    for (const LeftOut& leftOut : model.leftOut)
        PrintError(err, PathToUtf8(session.file) + ": " + leftOut.text + " [" + leftOut.rule + "]");
    std::ostringstream text;
    WriteEpJson(text, model);
    if (!WriteOrTell(
            path, [&](const ByteSink& sink) { sink(text.str()); }, out, err))
        return exitFailure;
    return model.leftOut.empty() ? exitAllWell : exitFindings;
}

} // namespace strativo
