#pragma once

#include "model/Project.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace strativo {

/// What the lines of a construction file said beside their content.
struct ParsedFile {
    bool standardLineSeen = false;
    bool userLineSeen = false;
    bool formatSeen = false;  ///< a keyword, part or table line, so it may be a construction file
    bool formatBad = false;   ///< set by no input
    int lastConstruction = 0; ///< number of the last construction read, 0 for none
};

/// What the parser does not do by itself.
struct ParserEvents {
    /// Takes a new construction without a name into use and makes it current.
    std::function<void()> createConstruction;
    /// A construction has more layers than there is room for.
    std::function<void()> layerRefused = [] {};
    /// Called now and then with the bytes read and their total, the two equal at the end.
    std::function<void(std::size_t done, std::size_t total)> progress = [](std::size_t,
                                                                           std::size_t) {};
};

/// Parses the bytes of a construction file into the project, line by line, up to the end or a
/// line with "!EOF". Run-time error 5 or 6; what was read before it stays in the project.
ParsedFile ParseConstructionFile(std::string_view bytes, Project& project,
                                 const ParserEvents& events);

/// Adds one layer to the current construction; false for a 16th one. Run-time error 5 or 6.
bool ParsePartLine(std::string_view line, bool transparent, Project& project);

} // namespace strativo
