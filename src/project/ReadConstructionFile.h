#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>

namespace strativo {

/// What became of the reading of a file.
enum class FileReading {
    whole,
    foreign,        ///< to its end, but no line of it is one of a construction file
    withoutLibrary, ///< to its end, but a library that it needs could not be loaded (reported)
    stopped,        ///< reported
    cancelled       ///< the prompt: nothing was read
};

/// Replaces the project by the content of a construction file: reads it, loads the libraries that
/// it names, links every layer and opens the windows. An empty path asks the user. A failure is
/// reported (with the prefix "Command line error" for a path given); what was read before it stays,
/// without a file name, so that it cannot be saved over the original by accident; so it is where a
/// library stopped with an error. Ends the program when a library that the file needs is refused.
FileReading ReadConstructionFile(Project& project, const std::string& path, Prompts& prompts);

} // namespace strativo
