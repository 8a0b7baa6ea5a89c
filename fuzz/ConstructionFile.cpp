#include "files/ConstructionWriter.h"
#include "files/Findings.h"
#include "fuzz/ProjectSupport.h"
#include "fuzz/Targets.h"
#include "project/SaveQuestions.h"

namespace strativo::fuzz {

void ConstructionFile(std::string_view bytes) {
    FuzzBytes none("");
    FuzzPrompts prompts(none);
    Project project;
    PrepareProject(project);
    ParseAndLink(bytes, project);
    // A file that fails in its middle leaves what was read before, as sound as a whole one.
    RequireInvariants(project);
    FindingsOf(project);
    CheckBeforeSave(project, prompts);
    const std::string written = FormatConstructionFile(project);
    Require(written == FormatConstructionFile(project), "writing does not change the project");
    Require(written.ends_with("\r\n"), "the last line written is a whole one");
}

} // namespace strativo::fuzz
