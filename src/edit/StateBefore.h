#pragma once

#include "model/Project.h"

#include <string>

namespace strativo {

// To be called by an edit before it changes the slot; the first call of an action counts. They do
// nothing where no history is kept, and while a whole project is read.

void NoteConstruction(Project& project, int number);
void NoteGlassType(Project& project, int number);
void NoteGlassType2D(Project& project, int number);
/// For an edit of the comments at the file's head.
void NoteFileHead(Project& project);

/// Says what the action does, as in "cut of 3 layers"; the last call counts.
void NameAction(Project& project, std::string action, bool removes = false);

/// "1 layer", "3 layers".
std::string Counted(int count, const std::string& noun);

} // namespace strativo
