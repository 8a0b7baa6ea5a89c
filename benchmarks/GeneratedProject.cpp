#include "benchmarks/GeneratedProject.h"

#include "benchmarks/ConstructionFileGenerator.h"
#include "files/ConstructionParser.h"
#include "files/MaterialLibraryFile.h"
#include "files/SilentDesktop.h"
#include "project/NewProject.h"

namespace strativo {

std::unique_ptr<Project> StartedProject() {
    SilentDesktop desktop;
    auto project = std::make_unique<Project>();
    StartUp(*project, Settings(), desktop);
    project->standardLibrary = ParseStandardLibrary(MakeStandardLibrary()).library;
    project->standardLoaded = true;
    return project;
}

void Parse(std::string_view bytes, Project& project) {
    SilentDesktop desktop;
    ParseConstructionFile(bytes, project, desktop,
                          [&] { OpenConstructionWindow(project, desktop); });
}

} // namespace strativo
