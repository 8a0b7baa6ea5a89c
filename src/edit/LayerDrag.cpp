#include "edit/LayerDrag.h"

#include "calc/LayerList.h"
#include "edit/ConstructionSlots.h"
#include "edit/LayerClipboard.h"
#include "edit/Saying.h"
#include "edit/StateBefore.h"

#include <algorithm>

namespace strativo {

namespace {

/// Inserts the clipboard at the row, without leaving marks, and brings the target's window up.
void PasteAtRow(Project& project, int target, int row, Prompts& prompts) {
    NoteConstruction(project, target);
    ActivateConstruction(project, target);
    Construction& construction = project.constructions[target];
    CloseUpLayers(construction);
    const int lines = LayerCount(construction);
    if (row >= lines) {
        construction.currentLayer = static_cast<std::int16_t>(lines);
        PasteLayers(project, prompts);
    } else {
        construction.currentLayer = static_cast<std::int16_t>(std::max(row, 0) + 1);
        PasteLayersBefore(project, prompts);
    }
    ClearMarks(construction);
    RefreshLayerList(construction);
    project.windowToActivate = target;
}

bool HasRoomFor(const Construction& target, int layers) {
    return LayerCount(target) + layers <= maxLayers;
}

} // namespace

int VisibleRow(double y, double rowHeight, int visibleRows) {
    return std::clamp(static_cast<int>(std::clamp(y / rowHeight, 0.0, 1000.0)), 0, visibleRows - 1);
}

bool StartLayerDrag(Project& project, int number, int line, bool copy) {
    Construction& construction = project.constructions[number];
    if (line < 0 || line >= LayerCount(construction))
        return false;
    construction.layers.Edit(SlotOfLayer(construction, line + 1)).selected = true;
    construction.currentLayer = static_cast<std::int16_t>(line + 1);
    project.drag = {number, copy};
    return true;
}

void DropLayers(Project& project, int target, int row, Prompts& prompts) {
    const LayerDrag drag = project.drag;
    if (!InUse(project, drag.source) || !InUse(project, target))
        return;
    Construction& source = project.constructions[drag.source];
    const int moved = MarkedLayersUpTo(source, maxLayers);
    if (moved == 0)
        return;
    project.currentConstruction = drag.source;
    const bool otherConstruction = target != drag.source;
    if (drag.copy) {
        CopyLayers(project, prompts);
    } else if (otherConstruction && !HasRoomFor(project.constructions[target], moved)) {
        CopyLayers(project, prompts);
        prompts.Beep();
        Say(project,
            "Not moved: " + Counted(LayerCount(project.constructions[target]) + moved, "layer")
                + " would be more than the " + std::to_string(maxLayers) + " of a construction");
        return;
    } else {
        const int above = MarkedLayersUpTo(source, row);
        CutLayers(project, prompts);
        row -= otherConstruction ? 0 : above;
    }
    PasteAtRow(project, target, row, prompts);
    NameAction(project, (drag.copy ? "copy of " : "move of ") + Counted(moved, "layer"));
}

void DropMaterial(Project& project, int target, int row, Prompts& prompts) {
    if (!InUse(project, target))
        return;
    PasteAtRow(project, target, row, prompts);
    NameAction(project, "insertion of " + project.clipboard[1].name);
}

} // namespace strativo
