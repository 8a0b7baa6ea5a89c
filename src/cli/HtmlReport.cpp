#include "cli/HtmlReport.h"

#include "calc/CavityTypes.h"
#include "calc/LayerList.h"
#include "calc/UValue.h"
#include "draw/GlassCurves.h"
#include "draw/MaterialKind.h"
#include "draw/Section.h"
#include "draw/Svg.h"
#include "files/Findings.h"
#include "text/Format.h"
#include "text/Windows1252.h"

#include <cmath>
#include <ostream>
#include <vector>

namespace strativo {

namespace {

constexpr char styleSheet[] =
    "@page { size: A4; margin: 16mm; }\n"
    "body { font: 10pt/1.4 'Liberation Sans', 'DejaVu Sans', sans-serif; color: #222;"
    " max-width: 178mm; margin: 1em auto; padding: 0 1em; }\n"
    "h1 { font-size: 18pt; border-bottom: 2px solid #308cc6; margin-bottom: .3em; }\n"
    "h2 { font-size: 13pt; margin: 1.6em 0 .4em; }\n"
    "section { break-inside: avoid; }\n"
    "table { border-collapse: collapse; width: 100%; font-size: 9pt; }\n"
    "th, td { border-bottom: 1px solid #ccc; padding: .2em .5em; text-align: right; }\n"
    "th { background: #f0f3f5; } .text { text-align: left; }\n"
    "tfoot td { font-weight: bold; border-bottom: 0; }\n"
    ".key { display: inline-block; width: .9em; height: .9em; border: 1px solid #555;"
    " vertical-align: -1px; margin-right: .4em; }\n"
    ".u { font-size: 12pt; } .note { color: #555; font-size: 9pt; }\n"
    "svg { display: block; max-width: 100%; margin: .4em 0; }\n"
    "@media print { body { margin: 0; padding: 0; max-width: none; } th, rect, .key {"
    " -webkit-print-color-adjust: exact; print-color-adjust: exact; } }\n";

std::string Show(std::string_view bytes) {
    return Escaped(ToUtf8(bytes));
}

/// Sums over the area of one square metre.
struct ArealSums {
    double mass = 0;         ///< kg/m2
    double heatCapacity = 0; ///< J/m2 C
};

std::string ShowSum(double value) {
    return std::isfinite(value) ? FormatNumber(value, "0.0") : "n/a";
}

ArealSums SumsOf(const Layer& layer) {
    if (layer.conductivity < 0)
        return {};
    const double mass = layer.thickness / 1000 * layer.density;
    return {mass, mass * layer.specificHeat};
}

class Report {
public:
    Report(std::ostream& stream, const Project& source) : out(stream), project(source) {}

    void Write(const std::string& file) {
        const std::string title = Escaped(PathToUtf8(file));
        out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>"
            << title << "</title>\n<style>\n"
            << styleSheet << "</style>\n</head>\n<body>\n<h1>" << title << "</h1>\n";
        WriteLibraries();
        for (int number = 1; number <= project.constructions.Size(); ++number)
            if (InUse(project, number))
                WriteConstruction(number);
        for (int number = 1; number <= project.glassTypes.Size(); ++number)
            if (!project.glassTypes[number].name.empty())
                WriteGlassType(number);
        WriteFindings();
        out << "</body>\n</html>\n";
    }

private:
    void WriteLibraries() {
        out << "<p>Standard library: " << Escaped(PathToUtf8(project.standardLibraryFile));
        if (project.userLoaded)
            out << "<br>User library: " << Escaped(PathToUtf8(project.userLibraryFile));
        out << "</p>\n<p class=\"note\">U-values are indicative: steady state, one-dimensional, "
               "with surface resistances of "
            << FormatNumber(outsideSurfaceResistance, "0.00") << " and "
            << FormatNumber(insideSurfaceResistance, "0.00")
            << " m<sup>2</sup>K/W and a fixed resistance for each type of cavity; thermal "
               "bridges are not in them. Layers run from outside to inside.</p>\n<p>";
        for (int kind = 0; kind < materialKinds; ++kind)
            out << Key(static_cast<MaterialKind>(kind)) << KindName(static_cast<MaterialKind>(kind))
                << " &nbsp; ";
        out << "</p>\n";
    }

    static std::string Key(MaterialKind kind) {
        return std::string("<span class=\"key\" style=\"background:") + ColourText(KindColour(kind))
               + "\"></span>";
    }

    void WriteConstruction(int number) {
        const Construction& construction = project.constructions[number];
        const bool transparent = construction.type == transparentType;
        out << "<section>\n<h2>" << number << ". " << Show(construction.name) << "</h2>\n<p>"
            << (transparent ? "Transparent" : "Opaque")
            << " &nbsp; <span class=\"u\">Indicative U-value <b>" << UValueText(construction)
            << "</b> W/m<sup>2</sup>K</span></p>\n";
        if (LayerCount(construction) > 0) {
            out << SvgElement(DrawSection(construction, {}, HeatFlow::horizontal), "section");
            WriteLayers(construction, transparent);
        }
        out << "</section>\n";
    }

    void WriteLayers(const Construction& construction, bool transparent) {
        out << "<table>\n<thead><tr><th></th><th class=\"text\">Layer</th><th>Thickness<br>mm"
               "</th><th>Conductivity<br>W/mK</th><th>R<br>m<sup>2</sup>K/W</th><th>Mass<br>"
               "kg/m<sup>2</sup></th><th>Heat capacity<br>kJ/m<sup>2</sup>K</th>"
            << (transparent ? "<th>Solar<br>absorption</th>" : "") << "</tr></thead>\n<tbody>\n";
        ArealSums total;
        for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
            const Layer& layer = construction.layers[slot];
            if (layer.name.empty())
                continue;
            const ArealSums sums = SumsOf(layer);
            total.mass += sums.mass;
            total.heatCapacity += sums.heatCapacity;
            WriteLayer(layer, slot, sums, transparent);
        }
        out << "</tbody>\n<tfoot><tr><td></td><td class=\"text\">Sum</td><td></td><td></td><td>"
               "</td><td>"
            << ShowSum(total.mass) << "</td><td>" << ShowSum(total.heatCapacity / 1000) << "</td>"
            << (transparent ? "<td></td>" : "") << "</tr></tfoot>\n</table>\n";
    }

    void WriteLayer(const Layer& layer, int slot, const ArealSums& sums, bool transparent) {
        const bool cavity = layer.conductivity < 0;
        const float resistance = LayerListResistance(layer);
        out << "<tr><td>" << slot << "</td><td class=\"text\">" << Key(KindOf(layer))
            << Show(layer.name) << "</td><td>"
            << (layer.conductivity == resistanceCavity ? "" : FormatNumber(layer.thickness, "0.0"))
            << "</td><td>" << (cavity ? "" : FormatNumber(layer.conductivity, "0.000"))
            << "</td><td>" << (resistance == 0 ? "n/a" : FormatNumber(resistance, "0.000"))
            << "</td><td>" << (cavity ? "" : ShowSum(sums.mass)) << "</td><td>"
            << (cavity ? "" : ShowSum(sums.heatCapacity / 1000)) << "</td>";
        if (transparent)
            out << "<td>" << AbsorptionText(layer.absorption) << "</td>";
        out << "</tr>\n";
    }

    void WriteGlassType(int number) {
        const GlassType& type = project.glassTypes[number];
        out << "<section>\n<h2>Glass type " << number << ": " << Show(type.name) << "</h2>\n"
            << SvgElement(DrawGlassCurves(type), "curve")
            << "<table>\n<thead><tr><th class=\"text\">Angle</th>";
        for (int value = 2; value <= AngularValues::last; ++value)
            out << "<th>" << IncidenceAngle(value) << "&deg;</th>";
        out << "<th>diffuse</th></tr></thead>\n<tbody>\n";
        WriteValues("Transmission", type.transmission);
        WriteValues("Absorption", type.absorption);
        out << "</tbody>\n</table>\n</section>\n";
    }

    void WriteValues(const char* label, const AngularValues& values) {
        out << "<tr><td class=\"text\">" << label << "</td>";
        for (int value = 2; value <= AngularValues::last; ++value)
            out << "<td>" << FormatNumber(values[value], "0.000") << "</td>";
        out << "<td>" << FormatNumber(values[1], "0.000") << "</td></tr>\n";
    }

    void WriteFindings() {
        out << "<section>\n<h2>Findings</h2>\n";
        const std::vector<Finding> findings = FindingsOf(project);
        if (findings.empty())
            out << "<p>None.</p>\n";
        else
            out << "<ul>\n";
        for (const Finding& finding : findings)
            out << "<li>" << Show(finding.text) << " <span class=\"note\">(" << finding.rule
                << ")</span></li>\n";
        out << (findings.empty() ? "" : "</ul>\n") << "</section>\n";
    }

    std::ostream& out;
    const Project& project;
};

} // namespace

void WriteHtmlReport(std::ostream& out, const Project& project, const std::string& file) {
    Report(out, project).Write(file);
}

} // namespace strativo
