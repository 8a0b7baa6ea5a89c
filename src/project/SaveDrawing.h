#pragma once

#include "port/Prompts.h"

#include <string>

namespace strativo {

/// Asks for a file and writes the SVG text to it, reporting a failure in a message. False when
/// nothing was written.
bool SaveDrawing(const std::string& svg, Prompts& prompts);

} // namespace strativo
