#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>
#include <vector>

namespace strativo {

/// The name of a construction file for display, in UTF-8; "Untitled.con" when there is none.
std::string ShownFileName(const std::string& constructionFile);

/// The first of two steps that complete the start: sorts the material list by name.
void OrderMaterialList(Project& project);

/// The second: if the command line is not empty, reads the construction file whose path it is.
void OpenCommandLine(Project& project, const std::string& commandLine, Prompts& prompts);

/// Asks for a construction file and reads it into a new project.
void OpenProject(Project& project, Prompts& prompts);

/// Reads a file dropped on the main window, without asking about unsaved changes. Does nothing
/// unless exactly one file was dropped.
void OpenDroppedFiles(Project& project, const std::vector<std::string>& paths, Prompts& prompts);

/// Runs the save checks and writes the project; false when nothing was written.
bool SaveProject(Project& project, Prompts& prompts);

/// SaveProject as its key does it: where the menu would not offer the command, only says why.
void SaveProjectByKey(Project& project, Prompts& prompts);

/// SaveProject after asking for a name; the old name is kept when nothing was written.
bool SaveProjectAs(Project& project, Prompts& prompts);

/// Writes the project to its file, asking for a name when it has none. A failure is reported with
/// the operating system's message, and leaves the old file, the name and `changed` as they were.
bool WriteConstructionFile(Project& project, Prompts& prompts);

/// Removes the construction with the active window; does nothing for 0, which stands for any other
/// window.
void CloseConstruction(Project& project, int activeConstruction);

/// Called when the main window is about to close; true when it must stay open.
bool QueryClose(Project& project, Prompts& prompts);

} // namespace strativo
