#pragma once

#include "edit/ConstructionSlots.h"
#include "files/ConstructionParser.h"

#include <string_view>

namespace strativo {

/// Parses the text of a construction file into the project; libraries are not loaded.
inline ParsedFile ParseText(std::string_view text, Project& project) {
    ParserEvents events;
    events.createConstruction = [&] { CreateUnnamedConstruction(project); };
    return ParseConstructionFile(text, project, events);
}

} // namespace strativo
