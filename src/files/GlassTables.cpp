#include "files/GlassTables.h"

#include "text/Numbers.h"

#include <algorithm>

namespace strativo {

namespace {

enum class GlassTable { none, transmission, absorption, diffusion };

/// The piece without the comma that separates table values.
std::string_view WithoutComma(std::string_view piece) {
    return piece.substr(0, piece.size() - (piece.ends_with(',') ? 1 : 0));
}

template <class Row>
void ReadRow(LineReader& lines, Row& row) {
    std::string scratch;
    std::string_view line = CleanLine(lines.Next(), scratch);
    int position = Row::first;
    while (!line.empty() && position <= Row::last) {
        const auto blank = std::min(line.find(' '), line.size());
        if (const auto number = WholeNumber(WithoutComma(line.substr(0, blank))))
            row[position++] = ToSingle(*number);
        line.remove_prefix(std::min(blank + 1, line.size()));
    }
}

void ReadRows(LineReader& lines, AngularValues& values) {
    ReadRow(lines, values);
}

void ReadRows(LineReader& lines, AngularTable& table) {
    for (auto& row : table)
        ReadRow(lines, row);
}

template <class Glass>
void ReadTable(LineReader& lines, GlassTable table, Glass& type) {
    if (table == GlassTable::transmission)
        ReadRows(lines, type.transmission);
    else if (table == GlassTable::absorption)
        ReadRows(lines, type.absorption);
    else
        ReadRows(lines, type.diffusion);
    type.hasDiffusion = type.hasDiffusion || table == GlassTable::diffusion;
}

GlassTable AnnouncedTable(std::string_view line) {
    if (Contains(line, "!TRANS"))
        return GlassTable::transmission;
    if (Contains(line, "!ABSORP"))
        return GlassTable::absorption;
    return Contains(line, "!DIFFU") ? GlassTable::diffusion : GlassTable::none;
}

} // namespace

void ReadAnnouncedTable(std::string_view line, LineReader& lines, Project& project, bool is2D) {
    const GlassTable table = AnnouncedTable(line);
    if (table == GlassTable::none)
        return;
    if (is2D)
        ReadTable(lines, table, project.glassTypes2D[project.currentGlassType2D]);
    else
        ReadTable(lines, table, project.glassTypes[project.currentGlassType]);
}

bool IsSection2D(std::string_view line) {
    return Contains(line, "2D");
}

} // namespace strativo
