#include "edit/ConstructionSlots.h"

#include "edit/Saying.h"
#include "edit/StateBefore.h"
#include "text/Format.h"

#include <algorithm>
#include <numeric>

namespace strativo {

namespace {

void CloseSlot(Project& project, int number) {
    Construction& construction = project.constructions[number];
    construction.type = removedType;
    construction.window.open = false;
    project.constructionCount = std::max(0, project.constructionCount - 1);
    project.lowestFreeHint = std::min(project.lowestFreeHint, number);
    project.comments.constructions.Drop(number);
    project.changed = true;
}

void ChooseCurrentAfterRemoval(Project& project) {
    if (InUse(project, project.currentConstruction))
        return;
    const int latest = LatestActiveConstruction(project);
    if (latest > 0)
        project.currentConstruction = latest;
}

} // namespace

int FirstFreeConstructionSlot(Project& project) {
    int number = project.lowestFreeHint;
    while (InUse(project, number))
        ++number;
    if (!project.constructions.Has(number))
        number = project.constructions.Append();
    project.lowestFreeHint = number;
    return number;
}

void ActivateConstruction(Project& project, int number) {
    project.currentConstruction = number;
    project.constructions[number].window.lastActive = ++project.activations;
}

int LatestActiveConstruction(const Project& project) {
    int latest = 0;
    const auto lastActive = [&](int number) {
        return project.constructions[number].window.lastActive;
    };
    for (const int number : ConstructionsInUse(project))
        if (latest == 0 || lastActive(number) >= lastActive(latest))
            latest = number;
    return latest;
}

void CreateUnnamedConstruction(Project& project) {
    const int number = FirstFreeConstructionSlot(project);
    NoteConstruction(project, number);
    Construction& construction = project.constructions[number];
    construction = Construction();
    construction.window.open = true;
    construction.window.opening = ++project.openings;
    ++project.constructionCount;
    ActivateConstruction(project, number);
}

void OpenConstructionWindow(Project& project) {
    CreateUnnamedConstruction(project);
    const int number = project.currentConstruction;
    NameAction(project, "new construction" + SignPositionNumber(number));
    project.constructions[number].name = ConstructionTitle(number);
}

void RemoveConstruction(Project& project, int number) {
    if (!InUse(project, number))
        return;
    NoteConstruction(project, number);
    NameAction(project, "removal of construction" + SignPositionNumber(number), true);
    CloseSlot(project, number);
    ChooseCurrentAfterRemoval(project);
}

bool MayCloseWindow(Project& project, int number) {
    if (!InUse(project, number) || project.closingInProgress)
        return true;
    Say(project, "This button closes no construction: Remove construction in the File menu does");
    return false;
}

void RemoveConstructions(Project& project, int last) {
    for (const int number : ConstructionsInUse(project))
        if (number <= last)
            CloseSlot(project, number);
    ChooseCurrentAfterRemoval(project);
}

void CloseUpLayers(Construction& construction) {
    LayerSlots& layers = construction.layers;
    int filled = 0;
    for (const int slot : FilledSlots(construction)) {
        ++filled;
        if (filled != slot)
            layers.Edit(filled) = layers[slot];
    }
    if (filled < layers.HighestUsed())
        layers.ClearFrom(filled + 1);
}

std::string ConstructionTitle(int number) {
    return "Construction" + SignPositionNumber(number);
}

std::vector<int> SlotsToMinimise(const Project& project) {
    std::vector<int> slots(
        project.constructionCount > 0 ? static_cast<std::size_t>(project.constructions.Size()) : 0);
    std::iota(slots.begin(), slots.end(), 1);
    return slots;
}

} // namespace strativo
