#pragma once

#include "exchange/StorableText.h"
#include "model/Project.h"

namespace strativo {

/// Adds the construction of a JSON object to the project, with its comments.
void ReadConstruction(const NameRules& names, JsonValue object, bool userLibraryNamed,
                      Project& project);

} // namespace strativo
