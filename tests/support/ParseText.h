#pragma once

#include "files/ConstructionParser.h"
#include "project/NewProject.h"
#include "support/TestProject.h"

#include <string_view>

namespace strativo {

/// Parses the text of a construction file into the project; libraries are not loaded.
inline ParsedFile ParseText(std::string_view text, Project& project, ScriptedPrompts& prompts) {
    return ParseConstructionFile(text, project, prompts, [&] {
        OpenConstructionWindow(project, prompts);
        project.constructions[project.currentConstruction].name.clear();
    });
}

} // namespace strativo
