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

/// The outcome of loading a library.
enum class LibraryLoad {
    loaded,
    wrongVersion, ///< reported
    cancelled,    ///< the first prompt was cancelled; nothing changed except that the name is empty
    failed,       ///< reported; the library holds what was stored before the failure
    givenUp       ///< the prompt repeated after a cancel was cancelled too; there is no file name
};

/// Loads the standard library from the project's file name (a single blank stands for the
/// remembered default; if empty, the user is asked). A failure is reported and, where that can
/// help, another file is asked for; cancelling then ends the program. Never returns givenUp. In the
/// project, a wrong version counts as loaded.
LibraryLoad LoadStandardLibrary(Project& project, Prompts& prompts);

/// The same for the user library, which has no remembered default and never ends the program. A
/// wrong version leaves it empty and without a file name. A loaded one is shown; after any other
/// outcome except a cancel it is removed from the material list.
LibraryLoad LoadUserLibrary(Project& project, Prompts& prompts);

/// Empties the user library and removes it from the material list.
void DropUserLibrary(Project& project);

} // namespace strativo
