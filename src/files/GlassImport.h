#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string_view>

namespace strativo {

/// Adds the glass types in the bytes of a construction file to the project. Throws run-time error 5
/// or 6; types added before it stay. False for a file of another format; no input leads to that.
bool ParseGlassDefinitions(std::string_view bytes, Project& project);

enum class ImportResult { imported, cancelled, stopped };

/// Asks for a construction file and imports its glass types. Success always marks the project as
/// changed; a failure is reported and marks it only if a type was added before.
ImportResult ImportGlassDefinitions(Project& project, Prompts& prompts);

} // namespace strativo
