#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <string>

namespace strativo {

/// The folder of recovery copies: $XDG_STATE_HOME/strativo, else ~/.local/state/strativo.
std::string RecoveryFolder();

/// Keeps a project with unsaved changes as a construction file in the folder, for a program that
/// ends without having asked. Returns its path; empty when nothing needed to be kept, or when it
/// could not be. A process has one copy: a later one replaces it.
std::string KeepRecoveryCopy(const Project& project, const std::string& folder) noexcept;

/// Removes the copy of this process, if there is one: the program went on, and its user has saved
/// the changes or given them up since.
void DropRecoveryCopy(const std::string& folder) noexcept;

/// Offers each copy left in the folder, once, until one is opened under the name of its original.
/// Copies that were offered stay there under another name. False when none was opened.
bool OfferRecovery(Project& project, const std::string& folder, Prompts& prompts);

} // namespace strativo
