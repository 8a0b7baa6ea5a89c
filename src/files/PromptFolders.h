#pragma once

#include "model/Project.h"

#include <optional>
#include <string>

namespace strativo {

/// The folder of a path as prompts take it: "." for the working directory.
std::string PlaceOf(const std::string& path);

/// Where the prompt for a construction file starts: in the folder of the file given, else in that
/// of the file used last; "" where there is none, or not any more.
std::string ConstructionFolder(const Project& project, const std::string& file);

/// Where the prompt for a library starts: in the folder in which that library was found, else where
/// the prompt for a construction file does.
std::string LibraryFolder(const Project& project, int libraryNumber);

/// The answer of a prompt, nothing for a cancel. A file chosen counts as used.
std::optional<std::string> Used(Project& project, std::optional<std::string> answer);

} // namespace strativo
