#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

namespace strativo {

/// Asks about constructions with a zero thickness or without absorption, and about names that could
/// not be read back from the file. False when the user decides not to save.
bool CheckBeforeSave(const Project& project, Prompts& prompts);

} // namespace strativo
