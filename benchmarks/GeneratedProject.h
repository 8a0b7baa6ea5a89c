#pragma once

#include "model/Project.h"

#include <memory>
#include <string_view>

namespace strativo {

/// A project as the program starts with, the generator's standard library loaded.
std::unique_ptr<Project> StartedProject();

/// Reads a generated construction file into the project, from memory.
void Parse(std::string_view bytes, Project& project);

} // namespace strativo
