#include "edit/ConstructionSlots.h"

#include "text/Format.h"
#include "text/Numbers.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace strativo {

namespace {

void CloseSlot(Project& project, int number, Prompts& prompts) {
    Construction& construction = project.constructions[number];
    construction.type = removedType;
    construction.window.open = false;
    project.constructionCount = std::max(0, project.constructionCount - 1);
    project.lowestFreeHint = std::min(project.lowestFreeHint, number);
    project.comments.constructions.Drop(number);
    project.closingInProgress = true;
    prompts.CloseConstructionWindow(number);
    project.closingInProgress = false;
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
    for (int number = 1; number <= project.constructions.Size(); ++number) {
        const WindowRecord& window = project.constructions[number].window;
        if (window.open
            && (latest == 0
                || window.lastActive >= project.constructions[latest].window.lastActive))
            latest = number;
    }
    return latest;
}

void RemoveConstruction(Project& project, int number, Prompts& prompts) {
    if (!InUse(project, number))
        return;
    CloseSlot(project, number, prompts);
    ChooseCurrentAfterRemoval(project);
}

void RemoveConstructions(Project& project, int last, Prompts& prompts) {
    for (int number = 1; number <= last; ++number)
        if (InUse(project, number))
            CloseSlot(project, number, prompts);
    ChooseCurrentAfterRemoval(project);
}

void CloseUpLayers(Construction& construction) {
    LayerSlots& layers = construction.layers;
    const int highest = layers.HighestUsed();
    int filled = 0;
    for (int slot = 1; slot <= highest; ++slot) {
        if (layers[slot].name.empty())
            continue;
        ++filled;
        if (filled != slot)
            layers.Edit(filled) = layers[slot];
    }
    if (filled < highest)
        layers.ClearFrom(filled + 1);
}

std::string WindowTag(int number) {
    return SignPositionNumber(number);
}

int TagNumber(std::string_view tag) {
    constexpr double limit = std::numeric_limits<int>::max();
    const double number = LeadingNumber(tag);
    return number >= 0 && number <= limit ? static_cast<int>(number) : 0;
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
