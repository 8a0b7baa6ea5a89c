#include "files/ConstructionPrompts.h"

#include "model/Project.h"

namespace strativo {

namespace {

constexpr char filter[] = "Construction Files (*.con)|*.con";
constexpr char extension[] = "CON";

} // namespace

std::string PromptConstructionFile(Prompts& prompts) {
    return prompts.AskOpenFile({"Open Construction file", filter, "", extension})
        .value_or(singleBlank);
}

std::string PromptSaveConstructionFile(Prompts& prompts) {
    return prompts.AskSaveFile({"Save Construction file as ", filter, "", extension})
        .value_or(singleBlank);
}

} // namespace strativo
