#pragma once

#include "model/Construction.h"

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
    std::string editThick;   ///< the thickness field
    std::string absorpText;  ///< the absorption field
    std::string conName;     ///< name of the current layer
    std::string result;      ///< the U-value
};
LayerListView ViewLayerList(const Construction& construction);

/// A thickness (mm, or a resistance) as its entry field shows it: whole millimetres from 1 on,
/// three decimals below, empty for 0.
std::string ThicknessText(double thickness);
/// A solar absorption (a fraction) as its entry field shows it, with two decimals.
std::string AbsorptionText(double absorption);

/// The events that make the thickness field show the current layer's thickness.
enum class ThicknessEvent {
    refresh, ///< the layers changed: shows a thickness above 0, or that there is no layer
    restore, ///< a layer was chosen or the field was left: 0 empties the field
    entry    ///< a thickness was entered
};

/// Updates the record of what the thickness field shows. If the event does not show the current
/// layer's thickness, the record stays as it is (false). A negative thickness is shown only by its
/// entry.
bool ShowThickness(Construction& construction, ThicknessEvent event);
/// The same where the current layer is known and need not be looked for.
bool ShowThickness(Construction& construction, const Layer& current, ThicknessEvent event);

/// Whether the windows of both constructions would show the same.
bool ShowTheSame(const Construction& a, const Construction& b);

/// Updates what the construction's window shows after its layers changed.
void RefreshLayerList(Construction& construction);

} // namespace strativo
