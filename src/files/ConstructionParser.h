#pragma once

#include "model/Project.h"

#include <cstddef>
#include <functional>
#include <string_view>

namespace strativo {

/// What the lines of a construction file told apart from their content.
struct ParsedFile {
    bool standardLineSeen = false;
    bool userLineSeen = false;
    bool formatSeen = false;  ///< a line of a construction file was recognised
    bool formatBad = false;   ///< no input sets it
    int lastConstruction = 0; ///< number of the last construction read; 0 for none
};

/// What the parser leaves to its caller.
struct ParserEvents {
    /// Takes a new construction without a name into use and makes it current.
    std::function<void()> createConstruction;
    /// Called when a construction has more layers than there is room for.
    std::function<void()> layerRefused = [] {};
    /// Called from time to time with the bytes read and their total, which are equal at the end.
    std::function<void(std::size_t done, std::size_t total)> progress = [](std::size_t,
                                                                           std::size_t) {};
};

/// How the constructions of a file are read on several processors.
struct ReadingAhead {
    unsigned threads = 0;       ///< beside the caller's
    std::size_t pieceBytes = 0; ///< least size of what is read at a time
};

/// Files that are read in a moment are not read ahead.
ReadingAhead UsualReadingAhead(std::size_t bytes);

/// Parses the bytes of a construction file into the project, line by line, up to the end or a line
/// with "!EOF". Throws run-time error 5 or 6; what was read before stays in the project. Reading
/// ahead changes nothing but the time that it takes.
ParsedFile ParseConstructionFile(std::string_view bytes, Project& project,
                                 const ParserEvents& events, ReadingAhead ahead);
inline ParsedFile ParseConstructionFile(std::string_view bytes, Project& project,
                                        const ParserEvents& events) {
    return ParseConstructionFile(bytes, project, events, UsualReadingAhead(bytes.size()));
}

} // namespace strativo
