#pragma once

#include "cli/HtmlReport.h"
#include "draw/MaterialKind.h"

#include <string>
#include <string_view>

namespace strativo {

/// Bytes of the file as text for the page.
std::string ReportText(std::string_view bytes);

/// A square of the colour in which sections show materials of this kind.
std::string ColourKey(MaterialKind kind);

/// The comment lines of a construction or glass type, as in the file.
void WriteReportComments(std::ostream& out, const CommentLines& comments);

/// The layers' total thickness, mm, without those of unknown width.
double KnownThickness(const Construction& construction);
/// Whether any cavity is given by its resistance, so that its width is unknown.
bool HasUnknownWidth(const Construction& construction);

// Sections of the page.
void WriteReportConstruction(std::ostream& out, const Project& project, int number,
                             const ReportDetails& details);
void WriteReportGlassType(std::ostream& out, const Project& project, int number);
void WriteReportGlassType2D(std::ostream& out, const Project& project, int number);

inline constexpr char notAvailable[] = "&ndash;";

} // namespace strativo
