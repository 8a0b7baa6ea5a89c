#pragma once

#include "files/LibraryLoading.h"
#include "model/Project.h"
#include "port/Prompts.h"

namespace strativo {

/// Asks for a standard library, loads and shows it. Layers in constructions are not linked anew.
/// The name goes back to what it was when nothing was loaded.
LibraryLoad LoadStandard(Project& project, Prompts& prompts);

/// The same for the user library, after a warning when layers come from the one loaded.
LibraryLoad LoadMaterials(Project& project, Prompts& prompts);

} // namespace strativo
