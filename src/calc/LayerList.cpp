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
    for (const int slot : FilledSlots(construction)) {
        const Layer& layer = construction.layers[slot];
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

bool ShowThickness(Construction& construction, ThicknessEvent event) {
    return ShowThickness(construction, CurrentLayer(construction), event);
}

bool ShowThickness(Construction& construction, const Layer& current, ThicknessEvent event) {
    const double thickness = current.thickness;
    const bool isShown = event == ThicknessEvent::entry || thickness > 0
                         || (event == ThicknessEvent::restore && thickness == 0)
                         || construction.currentLayer == 0;
    if (isShown)
        construction.window.shownThickness = thickness;
    return isShown;
}

bool ShowTheSame(const Construction& a, const Construction& b) {
    return a.name == b.name && a.type == b.type && a.layers == b.layers
           && a.currentLayer == b.currentLayer
           && a.window.shownThickness == b.window.shownThickness;
}

void RefreshLayerList(Construction& construction) {
    ShowThickness(construction, ThicknessEvent::refresh);
}

} // namespace strativo
