#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>

namespace strativo {

/// Asks for a file, beside the construction file and under the suggested name at first, and writes
/// the SVG text to it, reporting a failure in a message. False when nothing was written.
bool SaveDrawing(Project& project, const std::string& suggestedName, const std::string& svg,
                 Prompts& prompts);

} // namespace strativo
