#pragma once

#include "model/GlassType.h"
#include "text/Lines.h"

#include <string_view>

namespace strativo {

/// The table that a line of a glass section announces: "!TRANS", "!ABSORP" or "!DIFFU".
enum class GlassTable { none, transmission, absorption, diffusion };
GlassTable AnnouncedTable(std::string_view line);

/// Reads the table lines that follow into the glass type: the numeric pieces of a line, in order;
/// further ones are ignored, missing ones leave the old values. Run-time error 6.
void ReadGlassTable(LineReader& lines, GlassTable table, GlassType& type);
void ReadGlassTable(LineReader& lines, GlassTable table, GlassType2D& type);

/// The section line is of a two-dimensional type; a name that contains "2D" makes it so too.
bool IsSection2D(std::string_view line);

} // namespace strativo
