#include "files/SaveChecks.h"

#include "files/ReadBack.h"

#include <string>

namespace strativo {

namespace {

template <class Test>
std::vector<int> ConstructionsWithLayers(const Project& project, Test test) {
    std::vector<int> found;
    for (int number = 1; number <= project.constructions.Size(); ++number) {
        const Construction& construction = project.constructions[number];
        if (InUse(project, number) && !construction.layers[1].name.empty() && test(construction))
            found.push_back(number);
    }
    return found;
}

bool HasZeroThickness(const Construction& construction) {
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
        const Layer& layer = construction.layers[slot];
        if (!layer.name.empty() && layer.thickness == 0)
            return true;
    }
    return false;
}

bool HasZeroAbsorption(const Construction& construction) {
    double sum = 0;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
        sum += construction.layers[slot].absorption;
    return construction.type == transparentType && sum == 0;
}

std::vector<std::string> NamesOf(const Project& project, const std::vector<int>& constructions) {
    std::vector<std::string> names;
    for (const int number : constructions)
        names.push_back(project.constructions[number].name);
    return names;
}

bool AskAbout(const std::vector<std::string>& names, const char* finding, const char* title,
              Prompts& prompts) {
    if (names.empty())
        return true;
    std::string text = finding;
    text += "\r\r";
    for (const std::string& name : names)
        text += name + "\r";
    text += "\rDo you wish to save anyway?\r";
    return prompts.ShowMessage(YesNoQuestion(text, title)) == Answer::yes;
}

} // namespace

std::vector<int> ZeroThicknessConstructions(const Project& project) {
    return ConstructionsWithLayers(project, HasZeroThickness);
}

std::vector<int> ZeroAbsorptionConstructions(const Project& project) {
    return ConstructionsWithLayers(project, HasZeroAbsorption);
}

bool CheckBeforeSave(const Project& project, Prompts& prompts) {
    if (!AskAbout(NamesOf(project, ZeroThicknessConstructions(project)),
                  "The following construction(s) have at least one zero thickness",
                  "Zero thickness error", prompts))
        return false;
    if (!AskAbout(NamesOf(project, ZeroAbsorptionConstructions(project)),
                  "The following construction(s) have a total absorption equal to zero",
                  "Zero absorption error", prompts))
        return false;
    return AskAbout(UnreadableNames(project),
                    "The following name(s) cannot be read back from a construction file",
                    "Name error", prompts);
}

} // namespace strativo
