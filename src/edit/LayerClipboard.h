#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

namespace strativo {

// The five operations act on the current construction: its marked layers, and its current layer as
// the insertion point. With no construction to act on they beep and do nothing.

/// Fills the clipboard with the marked layers; with the Select Material dialog active, slot 1 with
/// the selected material. Nothing selected leaves the clipboard as it was.
void CopyLayers(Project& project, Prompts& prompts);
/// Copies the marked layers and removes them.
void CutLayers(Project& project, Prompts& prompts);
/// Removes the marked layers.
void DeleteLayers(Project& project, Prompts& prompts);
/// Inserts the clipboard after the current layer; the last one inserted becomes current. Entries
/// beyond 15 layers are dropped; a full construction only beeps.
void PasteLayers(Project& project, Prompts& prompts);
/// Inserts the clipboard before the current layer, whose number stays current.
void PasteLayersBefore(Project& project, Prompts& prompts);

/// Puts the material selected in the material list into the clipboard as its only entry. False,
/// with the clipboard as it was, when none is selected. Run-time error 6 for a material whose code
/// or conductivity no layer can hold.
bool TakeMaterial(Project& project);

/// Empties all entries.
void ClearClipboard(LayerClipboard& clipboard);

/// Removes all marks of a construction's layers.
void ClearMarks(Construction& construction);
/// Number of marked layers among those up to the layer number.
int MarkedLayersUpTo(const Construction& construction, int layerNumber);

} // namespace strativo
