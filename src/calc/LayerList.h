#pragma once

#include "model/Project.h"
#include "port/Desktop.h"

#include <string>
#include <vector>

namespace strativo {

/// The layer as a line of the layer list: name, resistance (m2 C/W) and thickness (mm) in fixed
/// columns.
std::string FormatLayerLine(const Layer& layer);

/// What a construction window shows of its layers.
struct LayerListView {
    std::vector<std::string> lines;
    std::vector<bool> marks; ///< one per line
    std::string editThick;
    std::string absorpText;
    std::string conName;
    std::string result;
};
LayerListView ViewLayerList(const Construction& construction);

/// A thickness (mm, or a resistance) as its entry field shows it: whole millimetres from 1 on,
/// three decimals below, empty for 0.
std::string ThicknessText(double thickness);
std::string AbsorptionText(double absorption);

/// Rebuilds what the construction's window shows after its layers changed. The thickness field
/// keeps its text where the current layer has no thickness above 0.
void RefreshLayerList(Project& project, int number, Prompts& prompts);

} // namespace strativo
