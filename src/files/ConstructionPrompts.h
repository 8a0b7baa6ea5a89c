#pragma once

#include "port/Prompts.h"

#include <optional>
#include <string>

namespace strativo {

// Each returns the chosen path, or nothing when the user cancelled.
std::optional<std::string> PromptConstructionFile(Prompts& prompts);
std::optional<std::string> PromptSaveConstructionFile(Prompts& prompts);

} // namespace strativo
