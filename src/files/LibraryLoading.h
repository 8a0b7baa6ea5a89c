#pragma once

#include "model/Project.h"
#include "port/Desktop.h"

#include <string>

namespace strativo {

// Titles of the prompts for a library file.
inline constexpr char standardLibraryPrompt[] = "Open standard material file";
inline constexpr char userLibraryPrompt[] = "Open user material file";

/// Asks for a library file; a single blank when the user cancelled.
std::string PromptLibraryFile(Desktop& desktop, const std::string& title,
                              const std::string& initialName);

/// Loads the standard library from the project's file name (a single blank: the remembered
/// default; empty: the user is asked). A failure is reported and another file asked for where that
/// can help; cancelling then ends the program. False when nothing was loaded: then the library
/// keeps what it held, and after a cancelled first prompt its file name is empty.
bool LoadStandardLibrary(Project& project, Desktop& desktop);

enum class UserLoad {
    loaded,
    wrongVersion, ///< the library is empty and has no file name
    cancelled,    ///< the first prompt was cancelled: nothing changed but the name, now empty
    failed,       ///< reported; the name is that of the file that failed
    givenUp       ///< the prompt that came back after a cancel was cancelled too; no file name
};

/// The same for the user library, which has no remembered default and never ends the program.
UserLoad LoadUserLibrary(Project& project, Desktop& desktop);

/// Empties the user library and takes it out of the material list.
void DropUserLibrary(Project& project, Desktop& desktop);

} // namespace strativo
