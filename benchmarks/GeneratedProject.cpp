#include "benchmarks/GeneratedProject.h"

#include "benchmarks/ConstructionFileGenerator.h"
#include "files/ConstructionParser.h"
#include "files/MaterialLibraryFile.h"
#include "files/SilentPrompts.h"
#include "project/NewProject.h"

namespace strativo {

std::unique_ptr<Project> StartedProject() {
    SilentPrompts prompts;
    auto project = std::make_unique<Project>();
    StartUp(*project, Settings(), prompts);
    project->standardLibrary = ParseStandardLibrary(MakeStandardLibrary()).library;
    project->standardLoaded = true;
    return project;
}

void Parse(std::string_view bytes, Project& project) {
    SilentPrompts prompts;
    ParseConstructionFile(bytes, project, prompts,
                          [&] { OpenConstructionWindow(project, prompts); });
}

} // namespace strativo
