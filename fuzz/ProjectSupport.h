#pragma once

#include "calc/Relink.h"
#include "edit/ConstructionSlots.h"
#include "files/ConstructionParser.h"
#include "files/MaterialLibraryFile.h"
#include "fuzz/FuzzPrompts.h"
#include "fuzz/Invariants.h"

#include <string_view>

namespace strativo::fuzz {

/// Materials of every kind: ordinary ones, and codes and values that no layer can hold.
inline constexpr char standardMaterials[] =
    "12'FACE BRICK' 0.84 1700 800\n"
    "7'ALUMINIUM' 160 2800 880\n"
    "30'A NAME THAT IS LONGER THAN THE LIST IS WIDE' 1 2 3\n"
    "0'CODE NOUGHT' 0.5 1 1\n"
    "-7'BELOW' 0.5 1 1\n"
    "40000'BEYOND' 0.5 1 1\n"
    "5'HUGE' 1e39 1 1\n"
    "6'NEGATIVE' -4 -1 -1\n"
    "-8'NO NUMBER' 1e30 1 1\n";
inline constexpr char userMaterials[] = "12* HEMP,0.04 40 1600\n15* CORK,0.045 150 1880\n"
                                        "\"16* OVER TWO\n!EOF LINES\",1 2 3\n";

/// A project just started, with both libraries loaded.
inline void PrepareProject(Project& project) {
    static const LibraryContent standard = ParseStandardLibrary(standardMaterials);
    static const LibraryContent user = ParseUserLibrary(userMaterials);
    project.standardLibrary = standard.library;
    project.userLibrary = user.library;
    project.standardLibraryFile = "stdmat.lby";
    project.userLibraryFile = "user.lby";
    project.standardLoaded = true;
    project.userLoaded = true;
}

/// Reads the bytes as a construction file and links its layers; false when they were refused.
inline bool ParseAndLink(std::string_view bytes, Project& project) {
    try {
        ParserEvents events;
        events.createConstruction = [&] { CreateUnnamedConstruction(project); };
        ParseConstructionFile(bytes, project, events);
        RelinkLayers(project);
        return true;
    } catch (const RuntimeError& error) {
        RequireNumber(error, {ErrorNumber::invalidArgument, ErrorNumber::overflow});
        return false;
    }
}

} // namespace strativo::fuzz
