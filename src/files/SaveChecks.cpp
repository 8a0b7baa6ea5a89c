#include "files/SaveChecks.h"

namespace strativo {

namespace {

bool HasFirstLayer(const Construction& construction) {
    return !construction.layers[1].name.empty();
}

std::vector<int> ConstructionsThat(const Project& project, bool (*test)(const Construction&)) {
    std::vector<int> found;
    for (const int number : ConstructionsInUse(project))
        if (test(project.constructions[number]))
            found.push_back(number);
    return found;
}

} // namespace

bool HasZeroThickness(const Construction& construction) {
    if (HasFirstLayer(construction))
        for (const int slot : FilledSlots(construction))
            if (construction.layers[slot].thickness == 0)
                return true;
    return false;
}

bool HasZeroAbsorption(const Construction& construction) {
    if (construction.type != transparentType || !HasFirstLayer(construction))
        return false;
    double sum = 0;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
        sum += construction.layers[slot].absorption;
    return sum == 0;
}

std::vector<int> ZeroThicknessConstructions(const Project& project) {
    return ConstructionsThat(project, HasZeroThickness);
}

std::vector<int> ZeroAbsorptionConstructions(const Project& project) {
    return ConstructionsThat(project, HasZeroAbsorption);
}

} // namespace strativo
