#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// Adds a glass type in the first free slot, or a new one, its values 0, and makes it current.
/// Names are not compared: a name that is there already gives a second type of that name.
void AddGlassType(Project& project, std::string name);
void AddGlassType2D(Project& project, std::string name);

/// One empty slot of either kind, as in a new project.
void ResetGlassTypes(Project& project);

/// Names of the ordinary types in slot order, free slots left out.
std::vector<std::string> GlassTypeNames(const Project& project);

/// Lists the glass types anew for their window; nothing is selected in it afterwards.
void RefreshGlassTypeList(Project& project);

/// Makes the last type of that name current. False when there is none.
bool FindGlassType(Project& project, std::string_view name);

/// Asks, then frees the slot of the first type of that name (unlike editing, which opens the last).
/// False when the user refused or there is no such type.
bool DeleteGlassType(Project& project, std::string_view name, Prompts& prompts);

} // namespace strativo
