#pragma once

#include "model/Project.h"
#include "port/Desktop.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// The lowest construction number that is not in use; the table grows by one where none is free.
int FirstFreeConstructionSlot(Project& project);

/// Makes the construction current, as the one whose window was active last.
void ActivateConstruction(Project& project, int number);

/// The construction in use whose window was active last; 0 when none is in use.
int LatestActiveConstruction(const Project& project);

/// Takes the construction out of use and closes its window; numbers of others do not change. The
/// construction active before it becomes current. A slot not in use is left alone.
void RemoveConstruction(Project& project, int number, Prompts& prompts);

/// Takes constructions 1 to last out of use, choosing the current one only at the end.
void RemoveConstructions(Project& project, int last, Prompts& prompts);

/// Closes up layer slots left empty between filled ones, so that line r shows layer r + 1.
void CloseUpLayers(Construction& construction);

/// The number with the sign position that window tags have: " 1".
std::string WindowTag(int number);
inline constexpr char dialogTag[] = "Uvalue Dialog";

/// The construction number in a window's tag; 0 for the tag of any other window.
int TagNumber(std::string_view tag);

/// Caption of a construction's window and default name of a new construction: "Construction 1".
std::string ConstructionTitle(int number);

/// The slots whose windows "Make all Icons" minimises, making those that do not exist: all of the
/// table, removed ones included, as long as any construction is in use.
std::vector<int> SlotsToMinimise(const Project& project);

} // namespace strativo
