#include "cli/ReportParts.h"
#include "draw/GlassCurves.h"
#include "draw/Svg.h"
#include "text/Format.h"

#include <algorithm>
#include <ostream>

namespace strativo {

namespace {

std::string Fraction(float value) {
    return FormatNumber(value, "0.000");
}

void WriteHeading(std::ostream& out, const std::string& id, const std::string& kind, int number,
                  const std::string& name) {
    out << "<section id=\"" << id << number << "\">\n<h2>" << kind << " " << number << ": "
        << ReportText(name) << "</h2>\n";
}

void WriteValues(std::ostream& out, const char* label, const AngularValues& values) {
    out << "<tr><th class=\"text\">" << label << "</th>";
    for (int value = 2; value <= AngularValues::last; ++value)
        out << "<td>" << Fraction(values[value]) << "</td>";
    out << "<td>" << Fraction(values[1]) << "</td></tr>\n";
}

void WriteRange(std::ostream& out, const char* label, const AngularTable& table) {
    float least = table[1][1];
    float most = least;
    for (const auto& row : table)
        for (const float value : row) {
            least = std::min(least, value);
            most = std::max(most, value);
        }
    out << "<tr><th class=\"text\">" << label << "</th><td>" << Fraction(least) << "</td><td>"
        << Fraction(most) << "</td></tr>\n";
}

} // namespace

void WriteReportGlassType(std::ostream& out, const Project& project, int number) {
    const GlassType& type = project.glassTypes[number];
    WriteHeading(out, "glass-type-", "Glass type", number, type.name);
    WriteReportComments(out, project.comments.glassTypes.Of(number));
    out << SvgElement(DrawGlassCurves(type), "curve")
        << "<table>\n<thead><tr><th class=\"text\">Angle of incidence</th>";
    for (int value = 2; value <= AngularValues::last; ++value)
        out << "<th>" << IncidenceAngle(value) << "&deg;</th>";
    out << "<th>diffuse</th></tr></thead>\n<tbody>\n";
    WriteValues(out, "Transmission", type.transmission);
    WriteValues(out, "Absorption", type.absorption);
    if (type.hasDiffusion)
        WriteValues(out, "Diffusion", type.diffusion);
    out << "</tbody>\n</table>\n</section>\n";
}

void WriteReportGlassType2D(std::ostream& out, const Project& project, int number) {
    const GlassType2D& type = project.glassTypes2D[number];
    WriteHeading(out, "glass-type-2d-", "Two-dimensional glass type", number, type.name);
    WriteReportComments(out, project.comments.glassTypes2D.Of(number));
    out << "<table>\n<thead><tr><th class=\"text\">19 rows of 19 values</th><th>lowest</th>"
           "<th>highest</th></tr></thead>\n<tbody>\n";
    WriteRange(out, "Transmission", type.transmission);
    WriteRange(out, "Absorption", type.absorption);
    if (type.hasDiffusion)
        WriteRange(out, "Diffusion", type.diffusion);
    out << "</tbody>\n</table>\n</section>\n";
}

} // namespace strativo
