#pragma once

#include "model/GlassType.h"
#include "text/Lines.h"

#include <string_view>

namespace strativo {

/// The table that a line of a glass section announces: "!TRANS", "!ABSORP" or "!DIFFU".
enum class GlassTable { none, transmission, absorption, diffusion };
GlassTable AnnouncedTable(std::string_view line);

/// Reads the table lines that follow into the glass type, taking the numbers of a line in order.
/// Extra numbers are ignored, and missing ones leave the old values. Throws run-time error 6.
void ReadGlassTable(LineReader& lines, GlassTable table, GlassType& type);
void ReadGlassTable(LineReader& lines, GlassTable table, GlassType2D& type);

/// Whether the section line announces a two-dimensional type; a name containing "2D" has that
/// effect too.
bool IsSection2D(std::string_view line);

} // namespace strativo
