#pragma once

#include "port/Desktop.h"

#include <string>

namespace strativo {

// Each returns the chosen path, or a single blank when the user cancelled.
std::string PromptConstructionFile(Prompts& prompts);
std::string PromptSaveConstructionFile(Prompts& prompts);

} // namespace strativo
