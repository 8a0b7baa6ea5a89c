#include "edit/ConstructionEntry.h"

#include "calc/CavityTypes.h"
#include "calc/LayerList.h"
#include "edit/ConstructionSlots.h"
#include "edit/LayerClipboard.h"
#include "edit/StateBefore.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

#include <algorithm>
#include <optional>

namespace strativo {

namespace {

bool IsLikelyThickness(const Layer& layer, double value, Prompts& prompts) {
    if (value < 1 && layer.conductivity != resistanceCavity) {
        prompts.ShowMessage({"Thickness is set to less than 1", "Thickness error"});
        return false;
    }
    if (value <= 1000)
        return true;
    const Message question = YesNoQuestion("Thickness is Greater than 1m, do you want this value",
                                           "Thickness warning", Answer::no);
    return prompts.ShowMessage(question) == Answer::yes;
}

/// The typed number; nothing, after a message, when it does not fit into a 32-bit float.
std::optional<double> TypedNumber(std::string_view text, Prompts& prompts) {
    try {
        const double value = LeadingNumber(text);
        ToSingle(value);
        return value;
    } catch (const RuntimeError&) {
        prompts.ShowMessage({"The number is too large: run-time error 6 occurred.", ""});
        return std::nullopt;
    }
}

/// The layer that an entry goes to: the current one, limited to the layers that exist; 0 when there
/// are none.
int LayerOfEntry(const Project& project, int number) {
    if (!InUse(project, number))
        return 0;
    const Construction& construction = project.constructions[number];
    const int lines = LayerCount(construction);
    return lines == 0 ? 0 : std::clamp<int>(construction.currentLayer, 1, lines);
}

void AdvanceToNextLayer(Construction& construction) {
    ClearMarks(construction);
    if (construction.currentLayer >= LayerCount(construction))
        return;
    ++construction.currentLayer;
    construction.layers.Edit(construction.currentLayer).selected = true;
    ShowThickness(construction, ThicknessEvent::restore);
}

} // namespace

EntryResult EnterThickness(Project& project, int number, std::string_view text, Prompts& prompts) {
    const int layerNumber = LayerOfEntry(project, number);
    if (layerNumber == 0)
        return EntryResult::nothing;
    Construction& construction = project.constructions[number];
    const std::optional<double> value = TypedNumber(text, prompts);
    const Layer& before = construction.layers[SlotOfLayer(construction, layerNumber)];
    if (!value || !IsLikelyThickness(before, *value, prompts))
        return EntryResult::refused;
    NoteConstruction(project, number);
    NameAction(project, "thickness of " + before.name);
    CloseUpLayers(construction);
    construction.currentLayer = static_cast<std::int16_t>(layerNumber);
    Layer& layer = construction.layers.Edit(layerNumber);
    layer.thickness = ToSingle(*value);
    project.changed = true;
    construction.window.edited = true;
    ShowThickness(construction, ThicknessEvent::entry);
    AdvanceToNextLayer(construction);
    RefreshLayerList(construction);
    return EntryResult::accepted;
}

EntryResult EnterAbsorption(Project& project, int number, std::string_view text, Prompts& prompts) {
    const int layer = LayerOfEntry(project, number);
    if (layer == 0)
        return EntryResult::nothing;
    const std::optional<double> value = TypedNumber(text, prompts);
    if (!value)
        return EntryResult::refused;
    NoteConstruction(project, number);
    Construction& construction = project.constructions[number];
    Layer& edited = construction.layers.Edit(SlotOfLayer(construction, layer));
    NameAction(project, "absorption of " + edited.name);
    edited.absorption = ToSingle(*value);
    return EntryResult::accepted;
}

void EnterName(Project& project, int number, std::string_view text) {
    NoteConstruction(project, number);
    NameAction(project, "name of construction" + SignPositionNumber(number));
    project.constructions[number].name = CleanEntry(text);
}

void ChangeType(Project& project, int number, int typeIndex) {
    NoteConstruction(project, number);
    NameAction(project, "type of construction" + SignPositionNumber(number));
    project.constructions[number].type = static_cast<std::int16_t>(typeIndex);
}

void SelectLine(Project& project, int number, int line, const std::vector<bool>& marks) {
    Construction& construction = project.constructions[number];
    const int lines = LayerCount(construction);
    construction.currentLayer = static_cast<std::int16_t>(std::clamp(line + 1, 0, lines));
    std::size_t mark = 0;
    for (const int slot : FilledSlots(construction)) {
        construction.layers.Edit(slot).selected = mark < marks.size() && marks[mark];
        ++mark;
    }
    ShowThickness(construction, ThicknessEvent::restore);
}

std::string CleanEntry(std::string_view text) {
    constexpr unsigned char deleteCharacter = 127;
    std::string clean(text);
    for (char& c : clean) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32 || code == deleteCharacter)
            c = ' ';
    }
    return clean;
}

bool StartsThicknessEntry(std::string_view keyText) {
    return keyText.size() == 1 && ((keyText[0] >= '0' && keyText[0] <= '9') || keyText[0] == '.');
}

} // namespace strativo
