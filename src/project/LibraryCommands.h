#pragma once

#include "model/Project.h"
#include "port/Desktop.h"

namespace strativo {

/// Asks for a standard library, loads and shows it. Layers in constructions are not linked anew.
void LoadStandard(Project& project, Desktop& desktop);

/// The same for the user library, after a warning when layers come from the one loaded.
void LoadMaterials(Project& project, Desktop& desktop);

} // namespace strativo
