#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

namespace strativo {

inline constexpr int visibleLayerRows = 9;
inline constexpr int visibleMaterialRows = 4;

/// The visible row (from 0) at height y of a list with rows of that height; above the list it is
/// the first row, below it the last.
int VisibleRow(double y, double rowHeight, int visibleRows);

/// Begins a drag of a construction's marked layers at a line of its list (from 0); that line is
/// dragged too, marked or not. False where the row holds no line.
bool StartLayerDrag(Project& project, int number, int line, bool copy);

/// Moves or copies the dragged layers to the target's list, before the row (from 0, counted before
/// anything is cut) or after the last line. A move to another construction that has no room for all
/// of them only beeps, so that no layer is lost.
void DropLayers(Project& project, int target, int row, Prompts& prompts);

/// Does the same for a dragged material, which the drag has already put into the clipboard.
void DropMaterial(Project& project, int target, int row, Prompts& prompts);

} // namespace strativo
