#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

namespace strativo {

// The five operations act on the current construction: on its marked layers, and at its current
// layer when they insert. Without a current construction they beep and do nothing.

/// Fills the clipboard with the marked layers or, when the Select Material dialog is active, puts
/// the selected material into slot 1. If nothing is selected the clipboard keeps its content.
void CopyLayers(Project& project, Prompts& prompts);
/// Copies the marked layers and removes them.
void CutLayers(Project& project, Prompts& prompts);
/// Removes the marked layers.
void DeleteLayers(Project& project, Prompts& prompts);
/// Inserts the clipboard after the current layer; the last one inserted becomes current. Entries
/// beyond 15 layers are dropped; a full construction only beeps.
void PasteLayers(Project& project, Prompts& prompts);
/// Inserts the clipboard before the current layer. The number of the current layer does not change,
/// so the first one inserted becomes current.
void PasteLayersBefore(Project& project, Prompts& prompts);

/// Makes the material selected in the material list the only entry of the clipboard. False, with
/// the clipboard unchanged, when none is selected. Throws run-time error 6 for a material whose
/// code or conductivity does not fit into a layer.
bool TakeMaterial(Project& project);

/// Takes the selected material, if there is one, and pastes it before the current layer.
void InsertMaterial(Project& project, Prompts& prompts);

/// Says that so many layers found no room, if any.
void SayNotInserted(Project& project, int layers);

/// Empties all entries.
void ClearClipboard(LayerClipboard& clipboard);

/// Removes all marks of a construction's layers.
void ClearMarks(Construction& construction);
/// Number of marked layers from layer 1 up to the given one.
int MarkedLayersUpTo(const Construction& construction, int layerNumber);

} // namespace strativo
