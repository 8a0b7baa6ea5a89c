#pragma once

#include "cli/JsonWriter.h"
#include "cli/ManyFiles.h"
#include "cli/Session.h"
#include "model/Project.h"

namespace strativo {

// The records of a project as JSON values.
Json JsonOf(const CommentLines& comments);
Json JsonOfConstruction(const Project& project, int number);
Json JsonOfGlassType(const Project& project, int number);
Json JsonOfGlassType2D(const Project& project, int number);
Json JsonOfMaterial(const MaterialLibrary& library, int slot);

/// What surrounds the documents of several files: they are items of one array, or one line each.
OutputFrame JsonFrame(const Invocation& call);
JsonLayout JsonLayoutOf(const Invocation& call);

/// The members that the documents of all commands start with: the file, the messages shown for it
/// and whether the program ended.
void WriteFileMembers(JsonWriter& writer, const Session& session);

} // namespace strativo
