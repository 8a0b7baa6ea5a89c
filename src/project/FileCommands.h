#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>
#include <vector>

namespace strativo {

/// The name of a construction file as people read it, in UTF-8; "Untitled.con" where there is none.
std::string ShownFileName(const std::string& constructionFile);

/// End of start-up: orders the material list and reads the construction file that the whole
/// command line names, if it is not empty.
void FinishStartUp(Project& project, const std::string& commandLine, Prompts& prompts);

/// Asks for a construction file and reads it into a new project.
void OpenProject(Project& project, Prompts& prompts);

/// Reads a file dropped on the main window, without a question about unsaved changes; any other
/// number of files than one is ignored.
void OpenDroppedFiles(Project& project, const std::vector<std::string>& paths, Prompts& prompts);

/// Runs the save checks and writes the project; false when nothing was written.
bool SaveProject(Project& project, Prompts& prompts);

/// The same under a name that is asked for; the old name is kept when nothing was written.
bool SaveProjectAs(Project& project, Prompts& prompts);

/// Writes the project to its file, asking for a name when it has none. A failure is reported with
/// the operating system's message, and leaves the old file, the name and `changed` as they were.
bool WriteConstructionFile(Project& project, Prompts& prompts);

/// Removes the construction whose window is active; 0, for any other window, removes nothing.
void CloseConstruction(Project& project, int activeConstruction);

/// Called when the main window is about to close; true when it must stay open.
bool QueryClose(Project& project, Prompts& prompts);

} // namespace strativo
