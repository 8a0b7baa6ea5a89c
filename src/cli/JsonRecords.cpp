#include "cli/JsonRecords.h"

#include "calc/LayerList.h"
#include "calc/UValue.h"
#include "cli/TextOutput.h"
#include "edit/MaterialList.h"
#include "text/Numbers.h"

namespace strativo {

namespace {

Json JsonOfLayer(const Layer& layer, int slot) {
    return {{"slot", slot},
            {"name", ToUtf8(layer.name)},
            {"materialCode", layer.materialCode},
            {"library", layer.library},
            {"conductivity", AsDecimal(layer.conductivity)},
            {"density", layer.density},
            {"specificHeat", layer.specificHeat},
            {"thickness", layer.thickness},
            {"absorption", AsDecimal(layer.absorption)},
            {"line", ToUtf8(FormatLayerLine(layer))}};
}

Json JsonOfLayers(const LayerSlots& layers) {
    Json array = Json::array();
    for (int slot = 1; slot <= layers.HighestUsed(); ++slot)
        if (!layers[slot].name.empty())
            array.push_back(JsonOfLayer(layers[slot], slot));
    return array;
}

template <int First, int Last>
Json JsonOfValues(const NumberedTable<float, First, Last>& values) {
    Json array = Json::array();
    for (const float value : values)
        array.push_back(AsDecimal(value));
    return array;
}

Json JsonOfValues(const AngularTable& table) {
    Json array = Json::array();
    for (const auto& row : table)
        array.push_back(JsonOfValues(row));
    return array;
}

template <class Glass>
Json JsonOfGlass(const Glass& type, int number, const CommentLines& comments) {
    return {{"number", number},
            {"name", ToUtf8(type.name)},
            {"comments", JsonOf(comments)},
            {"transmission", JsonOfValues(type.transmission)},
            {"absorption", JsonOfValues(type.absorption)},
            {"hasDiffusion", type.hasDiffusion},
            {"diffusion", JsonOfValues(type.diffusion)}};
}

} // namespace

Json JsonOf(const CommentLines& comments) {
    Json array = Json::array();
    for (const std::string& text : comments)
        array.push_back(ToUtf8(text));
    return array;
}

Json JsonOfConstruction(const Project& project, int number) {
    const Construction& construction = project.constructions[number];
    return {{"number", number},
            {"name", ToUtf8(construction.name)},
            {"type", construction.type},
            {"currentLayer", construction.currentLayer},
            {"result", UValueText(construction)},
            {"comments", JsonOf(project.comments.constructions.Of(number))},
            {"layers", JsonOfLayers(construction.layers)}};
}

Json JsonOfGlassType(const Project& project, int number) {
    return JsonOfGlass(project.glassTypes[number], number, project.comments.glassTypes.Of(number));
}

Json JsonOfGlassType2D(const Project& project, int number) {
    return JsonOfGlass(project.glassTypes2D[number], number,
                       project.comments.glassTypes2D.Of(number));
}

Json JsonOfMaterial(const MaterialLibrary& library, int slot) {
    const Material& material = library[slot];
    return {{"slot", slot},
            {"code", material.code},
            {"name", ToUtf8(material.name)},
            {"conductivity", material.conductivity},
            {"density", material.density},
            {"specificHeat", material.specificHeat},
            {"line", ToUtf8(FormatMaterialLine(material))}};
}

OutputFrame JsonFrame(const Invocation& call) {
    return call.jsonLines ? OutputFrame() : OutputFrame{"[", ",", "\n]\n", "]\n"};
}

JsonLayout JsonLayoutOf(const Invocation& call) {
    return call.jsonLines ? JsonLayout::line : JsonLayout::item;
}

void WriteFileMembers(JsonWriter& writer, const Session& session) {
    Json messages = Json::array();
    for (const Message& message : session.prompts.Messages())
        messages.push_back({{"title", MessageTitle(message)}, {"text", MessageText(message)}});
    writer.Member("file", PathToUtf8(session.file));
    writer.Member("messages", messages);
    writer.Member("ended", session.prompts.Ended());
}

} // namespace strativo
