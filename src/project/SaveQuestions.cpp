#include "project/SaveQuestions.h"

#include "files/SaveChecks.h"
#include "project/ReadBack.h"

#include <string>
#include <vector>

namespace strativo {

namespace {

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
