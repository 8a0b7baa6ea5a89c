#include "calc/LayerList.h"

#include "calc/UValue.h"
#include "text/Format.h"

namespace strativo {

namespace {

std::string ResistanceText(float resistance) {
    if (resistance == 0)
        return " n/a ";
    if (resistance > 0 && resistance < 1)
        return FormatNumber(resistance, "0.0000");
    if (resistance < 10)
        return FormatNumber(resistance, "0.000");
    if (resistance < 100)
        return FormatNumber(resistance, "##.00");
    return FormatNumber(resistance, static_cast<double>(resistance) < 100000 ? "#####" : "#E+00");
}

} // namespace

std::string FormatLayerLine(const Layer& layer) {
    constexpr std::size_t nameLength = 35;
    constexpr std::size_t nameWidth = 37;
    constexpr std::size_t numberWidth = 6;
    const char* pattern = layer.thickness >= 1 ? "#0" : "0.000";
    return LeftField(layer.name, nameLength, nameWidth) + "  "
           + RightField(ResistanceText(LayerListResistance(layer)), numberWidth) + "   "
           + RightField(FormatNumber(layer.thickness, pattern), numberWidth);
}

std::string ThicknessText(double thickness) {
    return thickness == 0 ? "" : FormatNumber(thickness, thickness >= 1 ? "#" : "0.000");
}

std::string AbsorptionText(double absorption) {
    return FormatNumber(absorption, "0.00");
}

LayerListView ViewLayerList(const Construction& construction) {
    LayerListView view;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
        const Layer& layer = construction.layers[slot];
        if (layer.name.empty())
            continue;
        view.lines.push_back(FormatLayerLine(layer));
        view.marks.push_back(layer.selected);
    }
    const Layer& shown = CurrentLayer(construction);
    view.editThick = ThicknessText(construction.window.shownThickness);
    view.absorpText = AbsorptionText(shown.absorption);
    view.conName = shown.name;
    view.result = UValueText(construction);
    return view;
}

void RefreshLayerList(Project& project, int number, Prompts& prompts) {
    Construction& construction = project.constructions[number];
    const double thickness = CurrentLayer(construction).thickness;
    if (construction.currentLayer == 0)
        construction.window.shownThickness = 0;
    else if (thickness > 0)
        construction.window.shownThickness = thickness;
    prompts.RefreshConstructionWindow(number);
}

} // namespace strativo
