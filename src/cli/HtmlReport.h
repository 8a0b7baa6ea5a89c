#pragma once

#include "model/Project.h"

#include <iosfwd>
#include <string>

namespace strativo {

/// Writes a self-contained HTML page about the project, printable on A4: constructions with their
/// sections and layers, glass types with their curves, and what `check` finds. Texts from files
/// are shown, never interpreted.
void WriteHtmlReport(std::ostream& out, const Project& project, const std::string& file);

} // namespace strativo
