#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string_view>

namespace strativo {

/// Adds the glass types in the bytes of a construction file to the project's. Run-time error 5 or
/// 6; types added before it stay. False for a file of another format, which no input is taken for.
bool ParseGlassDefinitions(std::string_view bytes, Project& project);

enum class ImportResult { imported, cancelled, stopped };

/// Asks for a construction file and imports its glass types. A failure is reported, and marks the
/// project as changed only if a type was added before it; success always does.
ImportResult ImportGlassDefinitions(Project& project, Prompts& prompts);

} // namespace strativo
