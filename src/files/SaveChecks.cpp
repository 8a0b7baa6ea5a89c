#include "files/SaveChecks.h"

namespace strativo {

namespace {

template <class Test>
std::vector<int> ConstructionsWithLayers(const Project& project, Test test) {
    std::vector<int> found;
    for (const int number : ConstructionsInUse(project)) {
        const Construction& construction = project.constructions[number];
        if (!construction.layers[1].name.empty() && test(construction))
            found.push_back(number);
    }
    return found;
}

bool HasZeroThickness(const Construction& construction) {
    for (const int slot : FilledSlots(construction))
        if (construction.layers[slot].thickness == 0)
            return true;
    return false;
}

bool HasZeroAbsorption(const Construction& construction) {
    double sum = 0;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
        sum += construction.layers[slot].absorption;
    return construction.type == transparentType && sum == 0;
}

} // namespace

std::vector<int> ZeroThicknessConstructions(const Project& project) {
    return ConstructionsWithLayers(project, HasZeroThickness);
}

std::vector<int> ZeroAbsorptionConstructions(const Project& project) {
    return ConstructionsWithLayers(project, HasZeroAbsorption);
}

} // namespace strativo
