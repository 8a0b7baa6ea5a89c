#pragma once

#include "model/Project.h"
#include "port/Desktop.h"

#include <functional>
#include <string>
#include <string_view>

namespace strativo {

/// What the lines of a construction file said beside their content.
struct ParsedFile {
    bool standardLineSeen = false;
    bool userLineSeen = false;
    bool formatBad = false;   ///< set by no input
    int lastConstruction = 0; ///< number of the last construction read, 0 for none
};

/// Opens a new construction and makes it current.
using CreateConstruction = std::function<void()>;

/// Parses the bytes of a construction file into the project, line by line, up to the end or a
/// line with "!EOF". Run-time error 5 or 6; what was read before it stays in the project.
ParsedFile ParseConstructionFile(std::string_view bytes, Project& project, Prompts& prompts,
                                 const CreateConstruction& createConstruction);

/// Adds one layer to the current construction. A 16th layer only beeps. Run-time error 5 or 6.
void ParsePartLine(std::string_view line, bool transparent, Project& project, Prompts& prompts);

} // namespace strativo
