#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

namespace strativo {

inline constexpr int visibleLayerRows = 9;
inline constexpr int visibleMaterialRows = 4;

/// The visible row (from 0) at height y of a list with rows of that height; positions above the
/// list count as its first row, those below as its last.
int VisibleRow(double y, double rowHeight, int visibleRows);

/// Begins a drag of the marked layers of a construction at a line of its list (from 0); the
/// pressed line is always among them. False where the row holds no line.
bool StartLayerDrag(Project& project, int number, int line, bool copy);

/// Drops the dragged layers before the row (from 0, before any cut) of the target's list, or
/// behind its last line: moves them, or copies them. A move to another construction that has no
/// room for all of them only beeps, so that no layer is lost.
void DropLayers(Project& project, int target, int row, Prompts& prompts);

/// Inserts the clipboard, which the drag of a material has filled, in the same way.
void DropMaterial(Project& project, int target, int row, Prompts& prompts);

} // namespace strativo
