#pragma once

#include "port/Desktop.h"

#include <string>

namespace strativo {

// Each returns the chosen path, or a single blank when the user cancelled.
std::string PromptConstructionFile(Desktop& desktop);
std::string PromptSaveConstructionFile(Desktop& desktop);

} // namespace strativo
