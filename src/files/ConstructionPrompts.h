#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <optional>
#include <string>

namespace strativo {

// Each returns the chosen path, or nothing when the user cancelled.
std::optional<std::string> PromptConstructionFile(Project& project, Prompts& prompts);
/// Suggests the name of the given file, in its folder; "" for none.
std::optional<std::string> PromptSaveConstructionFile(Project& project, const std::string& file,
                                                      Prompts& prompts);

} // namespace strativo
