#pragma once

#include "files/LibraryLoading.h"
#include "model/Project.h"
#include "port/Prompts.h"

namespace strativo {

/// Asks for a standard library, loads and shows it; existing layers are not linked again. If
/// nothing is loaded, the old name comes back.
LibraryLoad LoadStandard(Project& project, Prompts& prompts);

/// The same for the user library, with a warning first when layers come from the present one.
LibraryLoad LoadMaterials(Project& project, Prompts& prompts);

} // namespace strativo
