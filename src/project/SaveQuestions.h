#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

namespace strativo {

/// Asks about constructions with a zero thickness or without absorption where there are any, and
/// about names that could not be read back from the file; false when the user then refuses to save.
bool CheckBeforeSave(const Project& project, Prompts& prompts);

} // namespace strativo
