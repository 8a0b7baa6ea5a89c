#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// Adds a glass type with all values 0, in the first free slot or at the end, and makes it current.
/// Names need not be unique: an existing name gives a second type of that name.
void AddGlassType(Project& project, const std::string& name);
void AddGlassType2D(Project& project, const std::string& name);

/// Leaves one empty slot of each kind, as in a new project.
void ResetGlassTypes(Project& project);

/// Names of the ordinary types in slot order, free slots left out.
std::vector<std::string> GlassTypeNames(const Project& project);

/// Rebuilds the list of glass types that their window shows, with nothing selected.
void RefreshGlassTypeList(Project& project);

/// Makes the last type of that name current; false when there is none.
bool FindGlassType(Project& project, std::string_view name);

/// Asks, then frees the slot of the first type of that name (editing, on the other hand, opens the
/// last). False when the user refused or no such type exists.
bool DeleteGlassType(Project& project, std::string_view name, Prompts& prompts);

} // namespace strativo
