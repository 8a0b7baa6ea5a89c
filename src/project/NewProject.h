#pragma once

#include "model/Project.h"
#include "port/Desktop.h"
#include "project/Settings.h"

namespace strativo {

/// Puts the project into the state of a program just started: empty libraries and clipboard, one
/// empty untitled construction file, no library loaded.
void StartUp(Project& project, const Settings& settings, Prompts& prompts);

/// Whether the user is asked before the project is replaced by a new one.
bool AsksAboutChanges(const Project& project);

/// Asks whether unsaved changes may be lost; true without asking when there are none, and also
/// when no construction is open.
bool ConfirmDiscardChanges(const Project& project, Prompts& prompts);

/// Replaces the project by an empty untitled one, after asking; libraries and clipboard stay.
/// False when the user refused.
bool NewProject(Project& project, Prompts& prompts);

/// Makes a new, empty construction with its window and makes it current.
void OpenConstructionWindow(Project& project, Prompts& prompts);

/// The command "New construction": as above, after loading the standard library if that has not
/// been done yet, with the Select Material dialog shown.
void NewConstruction(Project& project, Prompts& prompts);

} // namespace strativo
