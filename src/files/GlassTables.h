#pragma once

#include "model/Project.h"
#include "text/Lines.h"

#include <string_view>

namespace strativo {

/// Reads the table that the line announces ("!TRANS", "!ABSORP" or "!DIFFU"), if any, from the
/// lines that follow into the current glass type of that kind, taking the numbers of a line in
/// order. Extra numbers are ignored, and missing ones leave the old values. Throws run-time
/// error 6.
void ReadAnnouncedTable(std::string_view line, LineReader& lines, Project& project, bool is2D);

/// Whether the section line announces a two-dimensional type; a name containing "2D" has that
/// effect too.
bool IsSection2D(std::string_view line);

} // namespace strativo
