#pragma once

#include "model/Project.h"

#include <string>
#include <vector>

namespace strativo {

/// The lowest construction number not in use; the table grows by one slot when all are taken.
int FirstFreeConstructionSlot(Project& project);

/// Makes the construction current and remembers its window as the last active one.
void ActivateConstruction(Project& project, int number);

/// The construction in use whose window was active last; 0 when none is in use.
int LatestActiveConstruction(const Project& project);

/// Takes a new, empty construction into use in the first free slot and makes it current.
void OpenConstructionWindow(Project& project);

/// The same without a name, for a construction that is being read.
void CreateUnnamedConstruction(Project& project);

/// Takes the construction out of use without renumbering the others. The one that was active before
/// it becomes current. Does nothing for a slot not in use.
void RemoveConstruction(Project& project, int number);

/// Whether the close box of a construction's window may close it: only while the program itself
/// does so. Where it may not, says what to use.
bool MayCloseWindow(Project& project, int number);

/// Takes constructions 1 to last out of use, choosing the current one only at the end.
void RemoveConstructions(Project& project, int last);

/// Closes up layer slots left empty between filled ones, so that line r shows layer r + 1.
void CloseUpLayers(Construction& construction);

/// Caption of a construction's window and default name of a new construction: "Construction 1".
std::string ConstructionTitle(int number);

/// The slots whose windows "Make all Icons" minimises, creating missing ones: every slot of the
/// table, removed constructions included, as long as any construction is in use.
std::vector<int> SlotsToMinimise(const Project& project);

} // namespace strativo
