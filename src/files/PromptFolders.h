#pragma once

#include "model/Project.h"

#include <optional>
#include <string>

namespace strativo {

/// The folder of a path in the form that prompts take; "." for the working directory.
std::string PlaceOf(const std::string& path);

/// Where the prompt for a construction file starts: in the folder of the given file, or else of the
/// file used last; "" if there is none any more.
std::string ConstructionFolder(const Project& project, const std::string& file);

/// Where the prompt for a library starts: in the folder in which that library was found, or else
/// where the prompt for a construction file starts.
std::string LibraryFolder(const Project& project, int libraryNumber);

/// Passes on the answer of a prompt (nothing for a cancel) and records a chosen file as used.
std::optional<std::string> Used(Project& project, std::optional<std::string> answer);

} // namespace strativo
