#include "cli/ReportDrawing.h"

#include "calc/CavityTypes.h"
#include "text/Format.h"

#include <algorithm>
#include <array>

namespace strativo {

namespace {

struct KindWords {
    MaterialKind kind;
    std::string_view words; ///< separated by blanks, upper case
};

/// The first row with a word that the name contains decides.
constexpr std::array<KindWords, 7> kindWords = {{
    {MaterialKind::insulation,
     "WOOL INSUL POLYSTYRENE EPS XPS POLYURETHANE PHENOLIC FOAM CELLULOSE CORK CELLULAR"},
    {MaterialKind::plaster, "PLASTER GYPSUM RENDER STUCCO"},
    {MaterialKind::glass, "GLASS ACRYLIC POLYCARBONATE"},
    {MaterialKind::concrete, "CONCRETE BLOCK SCREED MORTAR CEMENT TERRAZZO"},
    {MaterialKind::masonry, "BRICK STONE GRANITE MARBLE LIMESTONE SLATE TILE CLAY"},
    {MaterialKind::wood, "WOOD TIMBER OSB PLY OAK PINE CEDAR SPRUCE BOARD"},
    {MaterialKind::metal, "STEEL ALUMINIUM COPPER ZINC LEAD IRON"},
}};

bool HasWordOf(std::string_view name, std::string_view words) {
    while (!words.empty()) {
        const auto end = std::min(words.find(' '), words.size());
        if (name.find(words.substr(0, end)) != std::string_view::npos)
            return true;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

struct KindLook {
    const char* name;
    const char* colour;
};

constexpr std::array<KindLook, materialKinds> kindLooks = {{{"cavity", "#eaf4fb"},
                                                            {"insulation", "#f3c64d"},
                                                            {"glass", "#9fd0dd"},
                                                            {"masonry", "#b9573f"},
                                                            {"concrete", "#9aa4ae"},
                                                            {"wood", "#c89a63"},
                                                            {"plaster", "#e6dfd0"},
                                                            {"metal", "#5f6b77"},
                                                            {"other", "#c9c2d4"}}};

std::string Number(double value) {
    return FormatNumber(value, "0.00");
}

/// Width in the section, mm. A cavity that is given by its resistance has no width of its own.
double DrawnWidth(const Layer& layer) {
    constexpr double cavityWithoutWidth = 25;
    constexpr double widest = 10000;
    if (layer.conductivity == resistanceCavity)
        return cavityWithoutWidth;
    return std::clamp(layer.thickness, 0.0, widest);
}

std::string LayerSvg(const Layer& layer, int slot, double x, double width, double height) {
    std::string svg = "<rect x=\"" + Number(x) + "\" y=\"10\" width=\"" + Number(width)
                      + "\" height=\"" + Number(height) + "\" fill=\"" + KindColour(KindOf(layer))
                      + "\" stroke=\"#444\" stroke-width=\".6\"";
    svg += KindOf(layer) == MaterialKind::cavity ? " stroke-dasharray=\"3 2\"/>" : "/>";
    return svg + "<text x=\"" + Number(x + width / 2) + "\" y=\"" + Number(height + 22)
           + "\" text-anchor=\"middle\">" + std::to_string(slot) + "</text>\n";
}

struct Axes {
    double left = 40, top = 10, width = 360, height = 150;

    double X(int degrees) const { return left + width * degrees / 90; }
    double Y(double value) const { return top + height * (1 - std::clamp(value, 0.0, 1.0)); }
};

std::string GridSvg(const Axes& axes) {
    std::string svg;
    for (int degrees = 0; degrees <= 90; degrees += 10)
        svg += "<path d=\"M" + Number(axes.X(degrees)) + " " + Number(axes.top) + "v"
               + Number(axes.height) + "\" class=\"grid\"/><text x=\"" + Number(axes.X(degrees))
               + "\" y=\"" + Number(axes.top + axes.height + 14) + "\" text-anchor=\"middle\">"
               + std::to_string(degrees) + "</text>\n";
    for (int fifth = 0; fifth <= 5; ++fifth)
        svg += "<path d=\"M" + Number(axes.left) + " " + Number(axes.Y(fifth / 5.0)) + "h"
               + Number(axes.width) + "\" class=\"grid\"/><text x=\"" + Number(axes.left - 6)
               + "\" y=\"" + Number(axes.Y(fifth / 5.0) + 4) + "\" text-anchor=\"end\">"
               + FormatNumber(fifth / 5.0, "0.0") + "</text>\n";
    return svg;
}

std::string CurveSvg(const Axes& axes, const AngularValues& values, const char* colour) {
    std::string points;
    for (int number = 2; number <= AngularValues::last; ++number)
        points +=
            Number(axes.X(IncidenceAngle(number))) + "," + Number(axes.Y(values[number])) + " ";
    return "<polyline points=\"" + points + "\" fill=\"none\" stroke=\"" + colour
           + "\" stroke-width=\"2\"/>\n";
}

} // namespace

std::string Escaped(std::string_view utf8) {
    std::string out;
    for (const char c : utf8) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (c == '"')
            out += "&quot;";
        else
            out += code < 32 || code == 127 ? ' ' : c;
    }
    return out;
}

MaterialKind KindOf(const Layer& layer) {
    constexpr float insulating = 0.065F; // W/m C
    constexpr float metallic = 12;       // W/m C
    if (layer.conductivity < 0)
        return MaterialKind::cavity;
    if (layer.conductivity > 0 && layer.conductivity < insulating)
        return MaterialKind::insulation;
    for (const KindWords& row : kindWords)
        if (HasWordOf(layer.name, row.words))
            return row.kind;
    return layer.conductivity > metallic ? MaterialKind::metal : MaterialKind::other;
}

const char* KindName(MaterialKind kind) {
    return kindLooks.at(static_cast<std::size_t>(kind)).name;
}

const char* KindColour(MaterialKind kind) {
    return kindLooks.at(static_cast<std::size_t>(kind)).colour;
}

std::string SectionSvg(const Construction& construction) {
    constexpr double widest = 560; // drawing units
    constexpr double unitsPerMillimetre = 1.4;
    constexpr double thinnest = 1.2; // a film is to be seen at all
    constexpr double height = 90;
    const int highest = construction.layers.HighestUsed();
    double total = 0;
    for (int slot = 1; slot <= highest; ++slot)
        if (!construction.layers[slot].name.empty())
            total += DrawnWidth(construction.layers[slot]);
    const double scale = std::min(unitsPerMillimetre, widest / std::max(total, 1.0));
    std::string svg;
    double x = 24;
    for (int slot = 1; slot <= highest; ++slot) {
        if (construction.layers[slot].name.empty())
            continue;
        const double width = std::max(thinnest, DrawnWidth(construction.layers[slot]) * scale);
        svg += LayerSvg(construction.layers[slot], slot, x, width, height);
        x += width;
    }
    return "<svg class=\"section\" viewBox=\"0 0 " + Number(x + 30) + " 126\" width=\""
           + Number(x + 30)
           + "\" height=\"126\" role=\"img\"><text x=\"12\" y=\"58\" text-anchor=\"middle\" "
             "transform=\"rotate(-90 12 58)\">outside</text>"
           + svg + "<text x=\"" + Number(x + 14) + "\" y=\"58\" text-anchor=\"middle\" "
           + "transform=\"rotate(90 " + Number(x + 14) + " 58)\">inside</text></svg>\n";
}

std::string GlassCurveSvg(const GlassType& type) {
    const Axes axes;
    return "<svg class=\"curve\" viewBox=\"0 0 420 200\" width=\"420\" height=\"200\" "
           "role=\"img\">"
           + GridSvg(axes) + CurveSvg(axes, type.transmission, "#2a5db0")
           + CurveSvg(axes, type.absorption, "#b9573f")
           + "<text x=\"220\" y=\"192\" text-anchor=\"middle\">angle of incidence, degrees "
             "(blue transmission, red absorption)</text></svg>\n";
}

} // namespace strativo
