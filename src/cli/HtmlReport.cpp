#include "cli/HtmlReport.h"

#include "calc/CavityTypes.h"
#include "calc/ThermalText.h"
#include "calc/UValue.h"
#include "cli/ReportParts.h"
#include "cli/ReportStyle.h"
#include "draw/Svg.h"
#include "files/Findings.h"
#include "text/Format.h"
#include "text/Windows1252.h"

#include <ostream>

namespace strativo {

namespace {

std::string ShownPath(std::string_view path) {
    return Escaped(PathToUtf8(path));
}

/// The file's name without folders.
std::string_view NameOf(std::string_view path) {
    return path.substr(path.find_last_of('/') + 1);
}

bool IsLayerOfKnownWidth(const Layer& layer) {
    return !layer.name.empty() && layer.conductivity != resistanceCavity;
}

class Report {
public:
    Report(std::ostream& stream, const Project& source, const ReportDetails& itsDetails)
        : out(stream), project(source), details(itsDetails), findings(FindingsOf(source)) {}

    void Write() {
        const std::string title = ShownPath(NameOf(details.file));
        out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>"
            << title << "</title>\n<style>\n"
            << ReportStyleSheet(details) << "</style>\n</head>\n<body>\n<h1>" << title
            << "</h1>\n<p class=\"lead\">Building constructions and glazing</p>\n";
        WriteAbout();
        WriteOverview();
        WriteGlassOverview();
        WriteNotes();
        ForEachConstruction(
            [&](int number) { WriteReportConstruction(out, project, number, details); });
        for (const int number : NamedGlassTypes(project.glassTypes))
            WriteReportGlassType(out, project, number);
        for (const int number : NamedGlassTypes(project.glassTypes2D))
            WriteReportGlassType2D(out, project, number);
        WriteFindings();
        out << "</body>\n</html>\n";
    }

private:
    template <class Action>
    void ForEachConstruction(Action action) {
        for (const int number : ConstructionsInUse(project))
            action(number);
    }

    void WriteAboutRow(const char* label, const std::string& html) {
        out << "<tr><th>" << label << "</th><td>" << html << "</td></tr>\n";
    }

    void WriteAbout() {
        WriteReportComments(out, project.comments.fileHead);
        out << "<table class=\"about\">\n";
        WriteAboutRow("File", ShownPath(details.path));
        WriteAboutRow("Standard library", ShownPath(project.standardLibraryFile));
        if (project.userLoaded)
            WriteAboutRow("User library", ShownPath(project.userLibraryFile));
        WriteAboutRow("Date", Escaped(details.date));
        WriteAboutRow("Program", Escaped(details.program));
        const std::size_t count = findings.size();
        WriteAboutRow("Findings", count == 0 ? "None."
                                             : "<a href=\"#findings\">" + std::to_string(count)
                                                   + ", at the end</a>");
        out << "</table>\n";
    }

    void WriteOverview() {
        out << "<h2>Overview</h2>\n";
        if (project.constructionCount == 0) {
            out << "<p>The file has no constructions.</p>\n";
            return;
        }
        out << "<table class=\"overview\">\n<thead><tr><th>No.</th>"
               "<th class=\"text\">Construction</th><th class=\"word\">Type</th>"
               "<th>Thickness<br><span class=\"unit\">mm</span></th>"
               "<th>R of the layers<br><span class=\"unit\">m&sup2;K/W</span></th>"
               "<th>U-value<br><span class=\"unit\">W/m&sup2;K</span></th>"
               "<th>Indicative U<br><span class=\"unit\">W/m&sup2;K</span></th></tr></thead>\n"
               "<tbody>\n";
        ForEachConstruction([&](int number) { WriteOverviewRow(number); });
        out << "</tbody>\n</table>\n";
    }

    void WriteOverviewRow(int number) {
        const Construction& construction = project.constructions[number];
        const auto [layers, reason] = ThermalLayersOf(construction, details.conditions.firstLayer);
        std::string resistance = notAvailable;
        std::string transmittance = notAvailable;
        if (!reason) {
            const Films films = details.conditions.FilmsFor(details.flows.front());
            resistance = FormatNumber(SumsOf(layers).resistance, "0.000");
            transmittance = FormatNumber(
                SteadyStateOf(layers, films, details.conditions.air).transmittance, "0.000");
        }
        out << "<tr><td>" << number << "</td><td class=\"text\"><a href=\"#construction-" << number
            << "\">" << ReportText(construction.name) << "</a></td><td class=\"word\">"
            << (construction.type == transparentType ? "transparent" : "opaque") << "</td><td>"
            << FormatNumber(KnownThickness(construction), "0.0")
            << (HasUnknownWidth(construction) ? " + cavity" : "") << "</td><td>" << resistance
            << "</td><td>" << transmittance << "</td><td>" << UValueText(construction)
            << "</td></tr>\n";
    }

    bool HasGlass() const {
        for (const GlassType& type : project.glassTypes)
            if (!type.name.empty())
                return true;
        for (const GlassType2D& type : project.glassTypes2D)
            if (!type.name.empty())
                return true;
        return false;
    }

    void WriteGlassOverview() {
        if (!HasGlass())
            return;
        out << "<h3>Glass types</h3>\n<table class=\"overview\">\n<thead><tr><th>No.</th>"
               "<th class=\"text\">Glass type</th><th>Transmission<br>at 0&deg;</th>"
               "<th>Transmission<br>diffuse</th><th>Absorption<br>at 0&deg;</th>"
               "<th>Absorption<br>diffuse</th></tr></thead>\n<tbody>\n";
        for (int number = 1; number <= project.glassTypes.Size(); ++number)
            if (const GlassType& type = project.glassTypes[number]; !type.name.empty())
                WriteGlassRow(type, number);
        for (int number = 1; number <= project.glassTypes2D.Size(); ++number)
            if (const GlassType2D& type = project.glassTypes2D[number]; !type.name.empty())
                out << "<tr><td>2D " << number
                    << "</td><td class=\"text\"><a href=\"#glass-type-2d-" << number << "\">"
                    << ReportText(type.name)
                    << "</a></td><td class=\"text\" colspan=\"4\">two-dimensional, 19 rows of 19 "
                       "values</td></tr>\n";
        out << "</tbody>\n</table>\n";
    }

    void WriteGlassRow(const GlassType& type, int number) {
        out << "<tr><td>" << number << "</td><td class=\"text\"><a href=\"#glass-type-" << number
            << "\">" << ReportText(type.name) << "</a></td>";
        for (const AngularValues* values : {&type.transmission, &type.absorption})
            for (const int value : {2, 1})
                out << "<td>" << FormatNumber((*values)[value], "0.000") << "</td>";
        out << "</tr>\n";
    }

    void WriteNotes() {
        const HeatFlow flow = details.flows.front();
        const Films films = details.conditions.FilmsFor(flow);
        const bool fromOutside = details.conditions.firstLayer == FirstLayer::outside;
        out << "<div class=\"reading\">\n<h3>How to read it</h3>\n<p class=\"note\">U-values are "
               "those of ISO 6946 for heat "
               "flow "
            << FlowName(flow) << ", with the surface resistances R<sub>si</sub> "
            << FormatNumber(films.inside, "0.00#") << " m&sup2;K/W inside and R<sub>se</sub> "
            << FormatNumber(films.outside, "0.00#")
            << " m&sup2;K/W outside; one-dimensional, without thermal bridges. The indicative "
               "U-value is the one that the program's windows show: always with "
            << FormatNumber(insideSurfaceResistance, "0.00") << " inside and "
            << FormatNumber(outsideSurfaceResistance, "0.00")
            << " outside. The characteristics for temperatures that swing are those of ISO "
               "13786 for a period of 24 hours.</p>\n<p class=\"note\">"
            << cavityNote << "</p>\n<p class=\"note\">Layer 1 is the "
            << (fromOutside ? "outermost" : "innermost")
            << " one; sections have the outside on the left.</p>\n<p class=\"note keys\">";
        for (int kind = 0; kind < materialKinds; ++kind)
            out << "<span>" << ColourKey(static_cast<MaterialKind>(kind))
                << KindName(static_cast<MaterialKind>(kind)) << "</span> ";
        out << "</p>\n</div>\n";
    }

    void WriteFindings() {
        if (findings.empty())
            return;
        out << "<section id=\"findings\">\n<h2>Findings</h2>\n";
        out << "<table>\n<thead><tr><th class=\"word\">Severity</th><th class=\"word\">Rule</th>"
               "<th class=\"text\">Finding</th></tr></thead>\n<tbody>\n";
        for (const Finding& finding : findings)
            out << "<tr><td class=\"word\">"
                << (SeverityOf(finding) == Severity::error ? "error" : "warning")
                << "</td><td class=\"word\">" << finding.rule << "</td><td class=\"text\">"
                << ReportText(finding.text) << "</td></tr>\n";
        out << "</tbody>\n</table>\n</section>\n";
    }

    std::ostream& out;
    const Project& project;
    const ReportDetails& details;
    const std::vector<Finding> findings;
};

} // namespace

std::string ReportText(std::string_view bytes) {
    return Escaped(ToUtf8(bytes));
}

std::string ColourKey(MaterialKind kind) {
    return "<span class=\"key\" style=\"background:" + ColourText(KindColour(kind)) + "\"></span>";
}

void WriteReportComments(std::ostream& out, const CommentLines& comments) {
    if (comments.empty())
        return;
    out << "<p class=\"comments\">";
    const char* separator = "";
    for (const std::string& line : comments) {
        out << separator << ReportText(line);
        separator = "<br>";
    }
    out << "</p>\n";
}

double KnownThickness(const Construction& construction) {
    double sum = 0;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
        if (IsLayerOfKnownWidth(construction.layers[slot]))
            sum += construction.layers[slot].thickness;
    return sum;
}

bool HasUnknownWidth(const Construction& construction) {
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
        const Layer& layer = construction.layers[slot];
        if (!layer.name.empty() && !IsLayerOfKnownWidth(layer))
            return true;
    }
    return false;
}

void WriteHtmlReport(std::ostream& out, const Project& project, const ReportDetails& details) {
    Report(out, project, details).Write();
}

} // namespace strativo
