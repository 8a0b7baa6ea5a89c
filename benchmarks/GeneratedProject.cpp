#include "benchmarks/GeneratedProject.h"

#include "benchmarks/ConstructionFileGenerator.h"
#include "edit/ConstructionSlots.h"
#include "files/ConstructionParser.h"
#include "files/MaterialLibraryFile.h"

namespace strativo {

std::unique_ptr<Project> StartedProject() {
    auto project = std::make_unique<Project>();
    project->standardLibrary = ParseStandardLibrary(MakeStandardLibrary()).library;
    project->standardLoaded = true;
    return project;
}

void Parse(std::string_view bytes, Project& project) {
    ParserEvents events;
    events.createConstruction = [&] { OpenConstructionWindow(project); };
    ParseConstructionFile(bytes, project, events);
}

} // namespace strativo
