#pragma once

#include "model/Project.h"
#include "port/Prompts.h"

#include <optional>
#include <string>

namespace strativo {

// Titles of the prompts for a library file.
inline constexpr char standardLibraryPrompt[] = "Open standard material file";
inline constexpr char userLibraryPrompt[] = "Open user material file";

/// Asks for the file of a library; nothing when the user cancelled.
std::optional<std::string> PromptLibraryFile(Project& project, int libraryNumber,
                                             const std::string& initialName, Prompts& prompts);

/// What became of a load.
enum class LibraryLoad {
    loaded,
    wrongVersion, ///< reported
    cancelled,    ///< the first prompt was cancelled: nothing changed but the name, now empty
    failed,       ///< reported; the library holds what was stored before the failure
    givenUp       ///< the prompt that came back after a cancel was cancelled too; no file name
};

/// Loads the standard library from the project's file name (a single blank: the remembered
/// default; empty: the user is asked). A failure is reported and another file asked for where that
/// can help; cancelling then ends the program. Never givenUp; a wrong version counts as loaded in
/// the project.
LibraryLoad LoadStandardLibrary(Project& project, Prompts& prompts);

/// The same for the user library, which has no remembered default and never ends the program. A
/// wrong version leaves it empty and without a file name. It is shown when it was loaded; otherwise
/// but for a cancel it is taken out of the material list.
LibraryLoad LoadUserLibrary(Project& project, Prompts& prompts);

/// Empties the user library and takes it out of the material list.
void DropUserLibrary(Project& project);

} // namespace strativo
