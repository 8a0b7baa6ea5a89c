#include "edit/LayerClipboard.h"

#include "calc/LayerList.h"
#include "edit/ConstructionSlots.h"
#include "edit/Saying.h"
#include "edit/StateBefore.h"
#include "text/Numbers.h"

#include <algorithm>

namespace strativo {

namespace {

/// The construction to act on; null after a beep when there is none.
Construction* CurrentConstruction(Project& project, Prompts& prompts) {
    if (InUse(project, project.currentConstruction))
        return &project.constructions[project.currentConstruction];
    prompts.Beep();
    return nullptr;
}

/// The same, ready for an edit: gaps between its layers are closed first.
Construction* EditedConstruction(Project& project, Prompts& prompts) {
    Construction* construction = CurrentConstruction(project, prompts);
    if (construction == nullptr)
        return nullptr;
    NoteConstruction(project, project.currentConstruction);
    CloseUpLayers(*construction);
    return construction;
}

ClipEntry MaterialEntry(const Material& material, std::int16_t library) {
    ClipEntry entry;
    entry.name = material.name;
    entry.materialCode = ToInteger(material.code);
    entry.conductivity = ToSingle(material.conductivity);
    entry.density = material.density;
    entry.specificHeat = material.specificHeat;
    entry.library = library;
    return entry;
}

const Material* SelectedMaterial(const Project& project) {
    const MaterialLibrary& library = Library(project, project.shownLibrary);
    const int number = project.selectedMaterial;
    return number >= 1 && number <= MaterialCount(library) ? &library[number] : nullptr;
}

/// Edit > Copy in the dialog replaces slot 1 but keeps its absorption. It empties slot 2 only, so
/// the entries from slot 3 on are still pasted.
void CopyMaterial(Project& project) {
    const Material* material = SelectedMaterial(project);
    if (material == nullptr)
        return;
    ClipEntry entry = MaterialEntry(*material, project.shownLibrary);
    entry.absorption = project.clipboard[1].absorption;
    project.clipboard[1] = entry;
    project.clipboard[2].name.clear();
}

void CopyMarkedLayers(const Construction& construction, LayerClipboard& clipboard) {
    if (construction.currentLayer == 0 || MarkedLayersUpTo(construction, maxLayers) == 0)
        return;
    int entry = 1;
    for (const int slot : FilledSlots(construction)) {
        const Layer& layer = construction.layers[slot];
        if (!layer.selected)
            continue;
        clipboard[entry] = layer;
        clipboard[entry++].selected = false;
    }
    for (; entry <= LayerClipboard::last; ++entry)
        clipboard[entry].name.clear();
}

/// Marks these layers and no others; a range that starts at 0 begins with layer 1.
void MarkOnly(Construction& construction, int from, int to) {
    ClearMarks(construction);
    for (int layer = std::max(from, 1); layer <= to; ++layer)
        construction.layers.Edit(layer).selected = true;
}

/// Marks the inserted layers and makes one of them current; does nothing when none was inserted.
void MarkInserted(Construction& construction, int from, int to, int current) {
    if (to < from)
        return;
    MarkOnly(construction, from, to);
    construction.currentLayer = static_cast<std::int16_t>(current);
}

/// False when no layer is marked.
bool RemoveMarkedLayers(Construction& construction) {
    LayerSlots& layers = construction.layers;
    const int lines = LayerCount(construction);
    int kept = 0;
    for (int layer = 1; layer <= lines; ++layer) {
        if (layers[layer].selected)
            continue;
        ++kept;
        if (kept != layer)
            layers.Edit(kept) = layers[layer];
    }
    if (kept < lines)
        layers.ClearFrom(kept + 1);
    return kept < lines;
}

void RefreshAndMarkChanged(Project& project, Construction& construction) {
    RefreshLayerList(construction);
    project.changed = true;
}

void DeleteMarked(Project& project, Construction& construction) {
    const std::int16_t focused = construction.currentLayer;
    const int marked = MarkedLayersUpTo(construction, maxLayers);
    NameAction(project, "deletion of " + Counted(marked, "layer"), true);
    if (focused > 0 && RemoveMarkedLayers(construction)) {
        const auto left = static_cast<std::int16_t>(LayerCount(construction));
        construction.currentLayer = std::min(focused, left);
        MarkOnly(construction, construction.currentLayer, construction.currentLayer);
    }
    RefreshAndMarkChanged(project, construction);
}

/// Opens a gap at the layer and puts the entry there.
void InsertEntry(Project& project, Construction& construction, int lines, int at,
                 const ClipEntry& entry) {
    LayerSlots& layers = construction.layers;
    layers.Edit(lines + 1); // first, because a new slot invalidates references to layers
    for (int layer = lines + 1; layer > at; --layer)
        layers.Edit(layer) = layers[layer - 1];
    layers.Edit(at) = entry;
    if (entry.library == userLibraryNumber)
        project.userLibraryNeeded = true;
}

int EntryCount(const LayerClipboard& clipboard) {
    const auto isFilled = [](const ClipEntry& entry) { return !entry.name.empty(); };
    return static_cast<int>(std::count_if(clipboard.begin(), clipboard.end(), isFilled));
}

/// The construction to paste into; null after a beep when there is none or no room.
Construction* PasteTarget(Project& project, Prompts& prompts) {
    Construction* construction = EditedConstruction(project, prompts);
    if (construction != nullptr && LayerCount(*construction) >= maxLayers) {
        prompts.Beep();
        SayNotInserted(project, EntryCount(project.clipboard));
        return nullptr;
    }
    return construction;
}

} // namespace

void CopyLayers(Project& project, Prompts& prompts) {
    if (project.dialogActive)
        CopyMaterial(project);
    else if (const Construction* construction = CurrentConstruction(project, prompts))
        CopyMarkedLayers(*construction, project.clipboard);
}

void CutLayers(Project& project, Prompts& prompts) {
    Construction* construction = EditedConstruction(project, prompts);
    if (construction == nullptr || construction->currentLayer == 0)
        return;
    const int marked = MarkedLayersUpTo(*construction, maxLayers);
    CopyMarkedLayers(*construction, project.clipboard);
    DeleteMarked(project, *construction);
    NameAction(project, "cut of " + Counted(marked, "layer"), true);
}

void DeleteLayers(Project& project, Prompts& prompts) {
    if (Construction* construction = EditedConstruction(project, prompts))
        DeleteMarked(project, *construction);
}

void PasteLayers(Project& project, Prompts& prompts) {
    Construction* construction = PasteTarget(project, prompts);
    if (construction == nullptr)
        return;
    int lines = LayerCount(*construction);
    int current = std::min<int>(construction->currentLayer, lines);
    const int before = current;
    for (const ClipEntry& entry : project.clipboard)
        if (!entry.name.empty() && lines < maxLayers)
            InsertEntry(project, *construction, lines++, ++current, entry);
    MarkInserted(*construction, before + 1, current, current);
    SayNotInserted(project, EntryCount(project.clipboard) - (current - before));
    NameAction(project, "paste of " + Counted(current - before, "layer"));
    RefreshAndMarkChanged(project, *construction);
}

void PasteLayersBefore(Project& project, Prompts& prompts) {
    Construction* construction = PasteTarget(project, prompts);
    if (construction == nullptr)
        return;
    int lines = LayerCount(*construction);
    const int before = lines;
    const int at = std::clamp<int>(construction->currentLayer, 1, std::max(lines, 1));
    for (int slot = LayerClipboard::last; slot >= LayerClipboard::first; --slot)
        if (!project.clipboard[slot].name.empty() && lines < maxLayers)
            InsertEntry(project, *construction, lines++, at, project.clipboard[slot]);
    MarkInserted(*construction, at, at + lines - before - 1, at);
    SayNotInserted(project, EntryCount(project.clipboard) - (lines - before));
    NameAction(project, "paste of " + Counted(lines - before, "layer"));
    RefreshAndMarkChanged(project, *construction);
}

bool TakeMaterial(Project& project) {
    const Material* material = SelectedMaterial(project);
    if (material == nullptr)
        return false;
    const ClipEntry entry = MaterialEntry(*material, project.shownLibrary);
    ClearClipboard(project.clipboard);
    project.clipboard[1] = entry;
    return true;
}

void InsertMaterial(Project& project, Prompts& prompts) {
    if (!TakeMaterial(project))
        return;
    PasteLayersBefore(project, prompts);
    NameAction(project, "insertion of " + project.clipboard[1].name);
}

void SayNotInserted(Project& project, int layers) {
    if (layers > 0)
        Say(project, Counted(layers, "layer") + " not inserted: a construction has at most "
                         + std::to_string(maxLayers));
}

void ClearClipboard(LayerClipboard& clipboard) {
    clipboard = LayerClipboard();
}

void ClearMarks(Construction& construction) {
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
        construction.layers.Edit(slot).selected = false;
}

int MarkedLayersUpTo(const Construction& construction, int layerNumber) {
    int count = 0;
    int layer = 0;
    for (const int slot : FilledSlots(construction))
        count += ++layer <= layerNumber && construction.layers[slot].selected ? 1 : 0;
    return count;
}

} // namespace strativo
