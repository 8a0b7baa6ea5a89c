#pragma once

#include "files/ConstructionParser.h"
#include "project/NewProject.h"
#include "support/TestProject.h"

#include <string_view>

namespace strativo {

/// Parses the text of a construction file into the project; libraries are not loaded.
inline ParsedFile ParseText(std::string_view text, Project& project, ScriptedDesktop& desktop) {
    return ParseConstructionFile(text, project, desktop, [&] {
        OpenConstructionWindow(project, desktop);
        project.constructions[project.currentConstruction].name.clear();
    });
}

} // namespace strativo
