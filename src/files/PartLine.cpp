#include "files/PartLine.h"

#include "calc/LayerList.h"
#include "text/Lines.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

#include <cmath>

namespace strativo {

namespace {

constexpr auto npos = std::string_view::npos;

/// Where the material number of a part line starts, and which library it refers to: the user
/// library when there is an at sign.
PieceReader MaterialNumber(std::string_view line, std::size_t at, Layer& layer) {
    layer.library =
        static_cast<std::int16_t>(at == npos ? standardLibraryNumber : userLibraryNumber);
    const auto equals = line.find('=');
    if (at == npos && equals == npos)
        throw RuntimeError(ErrorNumber::invalidArgument);
    PieceReader reader(line, (at == npos ? equals : at) + 1);
    if (at == npos)
        reader.SkipBlanks();
    return reader;
}

double Millimetres(double metres) {
    const double millimetres = metres * 1000;
    if (!std::isfinite(millimetres))
        throw RuntimeError(ErrorNumber::overflow);
    return millimetres;
}

Layer ReadPart(std::string_view line, std::size_t at, bool transparent) {
    Layer layer;
    PieceReader reader = MaterialNumber(line, at, layer);
    if (reader.AtLastCharacter())
        return layer;
    layer.materialCode = ToInteger(LeadingNumber(reader.PieceBeforeBlank()));
    if (layer.materialCode < 0)
        layer.conductivity = layer.materialCode;
    reader.SkipBlanksAndControls();
    layer.thickness = Millimetres(LeadingNumber(reader.Piece()));
    if (transparent) {
        reader.SkipBlanks();
        reader.Piece(); // a constant column of the simulation program
        reader.SkipBlanks();
        layer.absorption = ToSingle(LeadingNumber(reader.Piece()));
    }
    return layer;
}

} // namespace

bool ParsePartLine(std::string_view line, bool transparent, Project& project) {
    const auto at = line.find('@');
    // Before the numbers, which may be malformed, are read.
    project.userLibraryNeeded = project.userLibraryNeeded || at != npos;
    Layer layer = ReadPart(line, at, transparent);
    Construction& construction = project.constructions[project.currentConstruction];
    const int slot = construction.layers.HighestUsed() + 1;
    if (slot > maxLayers)
        return false;
    layer.name = std::to_string(slot); // placeholder until the layer is linked to its library
    construction.currentLayer = static_cast<std::int16_t>(slot);
    ShowThickness(construction, layer, ThicknessEvent::refresh);
    construction.layers.Edit(slot) = std::move(layer);
    return true;
}

} // namespace strativo
