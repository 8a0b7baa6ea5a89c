#include "files/ConstructionPrompts.h"

namespace strativo {

namespace {

constexpr char filter[] = "Construction Files (*.con)|*.con";
constexpr char extension[] = "CON";

} // namespace

std::optional<std::string> PromptConstructionFile(Prompts& prompts) {
    return prompts.AskOpenFile({"Open Construction file", filter, "", extension});
}

std::optional<std::string> PromptSaveConstructionFile(Prompts& prompts) {
    return prompts.AskSaveFile({"Save Construction file as ", filter, "", extension});
}

} // namespace strativo
