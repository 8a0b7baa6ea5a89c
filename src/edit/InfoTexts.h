#pragma once

#include "model/Project.h"

#include <string>

namespace strativo {

/// The comment lines of a construction, each followed by a line feed and a carriage return.
std::string CommentText(const Project& project, int number);

// The two texts that contain the program's version.
extern const char* const mainCaption;
extern const char* const versionText;

/// What the empty main window says, in lines of UTF-8.
extern const char* const howToBegin;

/// The windows whose source identification the About box can show, in its order.
enum class ProgramWindow { selectMaterial, construction, mainWindow, glassTypes, glassProperties };

/// Records the identification of a window's source file when the window is first loaded.
void RecordSource(Project& project, ProgramWindow window);

/// The six source identification lines, each followed by a carriage return; those of windows not
/// loaded yet are empty.
std::string SourceText(const Project& project);

} // namespace strativo
