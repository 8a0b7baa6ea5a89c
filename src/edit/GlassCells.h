#pragma once

#include "edit/GlassProfile.h"

#include <string>
#include <string_view>

namespace strativo {

/// The eleven values as one row of spreadsheet cells: shortest decimals separated by tabs.
std::string CellsOf(const AngularValues& values);

/// Puts eleven cells of a spreadsheet, a row or a column of them, into columns 1 to 11 of the shown
/// property. Cells are separated by tabs or line ends and hold numbers from 0 to 1 with a decimal
/// point or comma. Anything else is refused with a message that says why, and changes nothing.
bool PasteCells(Project& project, GlassProfile& profile, std::string_view cells, Prompts& prompts);

} // namespace strativo
