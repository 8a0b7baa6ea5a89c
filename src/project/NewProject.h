#pragma once

#include "model/Project.h"
#include "port/Prompts.h"
#include "project/Settings.h"

namespace strativo {

/// Completes a newly constructed project with what starting adds: the settings and the folder in
/// which the program was started.
void StartUp(Project& project, const Settings& settings);

/// Whether the user is asked before the project is replaced by a new one.
bool AsksAboutChanges(const Project& project);

/// Asks whether unsaved changes may be lost; true without asking when there are none, and also
/// when no construction is open.
bool ConfirmDiscardChanges(const Project& project, Prompts& prompts);

/// Replaces the project by an empty untitled one, after asking; libraries and clipboard stay.
/// False when the user refused.
bool NewProject(Project& project, Prompts& prompts);

/// The command "New construction": opens one, after loading the standard library if that has not
/// been done yet, with the Select Material dialog shown.
void NewConstruction(Project& project, Prompts& prompts);

} // namespace strativo
