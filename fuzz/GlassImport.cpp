#include "files/GlassImport.h"

#include "edit/GlassTypes.h"
#include "fuzz/ProjectSupport.h"
#include "fuzz/Targets.h"

namespace strativo::fuzz {

namespace {

/// Types 1 and 3 of either kind with slot 2 free between them.
void AddTypesAroundFreeSlot(Project& project) {
    for (const char* name : {"FIRST", "SECOND", "THIRD"}) {
        AddGlassType(project, name);
        AddGlassType2D(project, name);
    }
    project.glassTypes[1].transmission[1] = 0.5F;
    project.glassTypes[2].name.clear();
    project.glassTypes2D[2].name.clear();
    project.freeGlassHint = project.freeGlassHint2D = 2;
}

} // namespace

void GlassImport(std::string_view bytes) {
    FuzzBytes none("");
    FuzzPrompts prompts(none);
    Project project;
    PrepareProject(project);
    AddTypesAroundFreeSlot(project);
    try {
        Require(ParseGlassDefinitions(bytes, project), "no input is taken for another format");
    } catch (const RuntimeError& error) {
        RequireNumber(error, {ErrorNumber::invalidArgument, ErrorNumber::overflow});
    }
    RequireInvariants(project);
    Require(project.glassTypes[1].name == "FIRST" && project.glassTypes[3].name == "THIRD"
                && project.glassTypes2D[1].name == "FIRST"
                && project.glassTypes2D[3].name == "THIRD",
            "the types that were there keep their places");
    Require(project.glassTypes[1].transmission[1] == 0.5F, "and their values");
    Require(project.constructionCount == 0, "an import adds no constructions");
    Require(project.standardLibraryFile == "stdmat.lby", "an import leaves the libraries alone");
}

} // namespace strativo::fuzz
