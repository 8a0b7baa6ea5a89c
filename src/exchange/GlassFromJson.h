#pragma once

#include "exchange/StorableText.h"
#include "model/Project.h"

namespace strativo {

// Each adds the glass type of a JSON object to the project, with its comments.
void ReadGlassType(const NameRules& names, JsonValue object, Project& project);
void ReadGlassType2D(const NameRules& names, JsonValue object, Project& project);

} // namespace strativo
