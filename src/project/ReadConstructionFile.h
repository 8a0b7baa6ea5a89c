#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>

namespace strativo {

/// The outcome of reading a file.
enum class FileReading {
    whole,
    foreign,        ///< read to the end, but no line is one of a construction file
    withoutLibrary, ///< read to the end, but a needed library could not be loaded (reported)
    stopped,        ///< reported
    cancelled       ///< at the prompt: nothing was read
};

/// Replaces the project with the content of a construction file: reads it, loads the libraries that
/// it names, links every layer and opens the windows. An empty path asks the user. A failure is
/// reported (prefixed with "Command line error" for a given path); what was read until then stays,
/// but without a file name, so that it cannot be saved over the original by accident. The same
/// holds when a library stops with an error. Ends the program when the user refuses a library that
/// the file needs.
FileReading ReadConstructionFile(Project& project, const std::string& path, Prompts& prompts);

} // namespace strativo
