#include "draw/GlassCurves.h"

#include "text/Format.h"

#include <algorithm>

namespace strativo {

namespace {

/// How a property is drawn. Dashes and dots tell the properties apart on paper without colours.
struct CurveLook {
    const char* name;
    DrawnColour colour;
    double dash;
    bool filledDots;
};
constexpr CurveLook transmissionLook = {"Transmission", 0x1F4E9E, 0, true};
constexpr CurveLook absorptionLook = {"Absorption", 0xB03A2E, 6, false};
constexpr CurveLook diffusionLook = {"Diffusion", 0x3B7A3B, 2, true};

constexpr double left = 34;
constexpr double top = 10;
constexpr double width = 360;
constexpr double height = 150;
constexpr double diffuseX = left + width + 26;
constexpr double dotRadius = 2.8;
constexpr double lineHeight = 13;
constexpr double rightMargin = 44;

double X(int degrees) {
    return left + width * degrees / 90;
}

double Y(double value) {
    return top + height * (1 - std::clamp(value, 0.0, 1.0));
}

void AddText(Drawing& drawing, DrawnPoint base, const std::string& utf8, TextAnchor anchor) {
    drawing.Add(DrawnText{base, utf8, anchor, DrawnText().size, inkColour, false});
}

void AddGrid(Drawing& drawing) {
    const Stroke grid{0xDDDDDD, 0.7, 0};
    for (int degrees = 0; degrees <= 90; degrees += 10) {
        drawing.Add(DrawnLine{{{X(degrees), top}, {X(degrees), top + height}}, grid});
        AddText(drawing, {X(degrees), top + height + lineHeight}, std::to_string(degrees),
                TextAnchor::middle);
    }
    for (int fifth = 0; fifth <= 5; ++fifth) {
        const double y = Y(fifth / 5.0);
        drawing.Add(DrawnLine{{{left, y}, {left + width, y}}, grid});
        AddText(drawing, {left - 6, y + 4}, FormatNumber(fifth / 5.0, "0.0"), TextAnchor::end);
    }
    drawing.Add(DrawnLine{{{diffuseX, top}, {diffuseX, top + height}}, grid});
    AddText(drawing, {diffuseX, top + height + lineHeight}, "diffuse", TextAnchor::middle);
    AddText(drawing, {left + width / 2, top + height + 2 * lineHeight},
            "Angle of incidence (degrees)", TextAnchor::middle);
}

void AddDot(Drawing& drawing, DrawnPoint centre, const CurveLook& look) {
    drawing.Add(DrawnDot{
        centre, dotRadius, look.filledDots ? look.colour : paperColour, {look.colour, 1.2, 0}});
}

void AddCurve(Drawing& drawing, const AngularValues& values, const CurveLook& look) {
    DrawnLine line{{}, {look.colour, 1.8, look.dash}};
    for (int number = 2; number <= AngularValues::last; ++number)
        line.points.push_back({X(IncidenceAngle(number)), Y(values[number])});
    drawing.Add(line);
    for (const DrawnPoint& point : line.points)
        AddDot(drawing, point, look);
}

struct Curve {
    const AngularValues* values;
    CurveLook look;
};

/// The diffuse values, with their figures moved apart if they would overlap.
void AddDiffuseValues(Drawing& drawing, std::vector<Curve> curves) {
    std::stable_sort(curves.begin(), curves.end(), [](const Curve& a, const Curve& b) {
        return (*a.values)[1] > (*b.values)[1];
    });
    double lowest = 0;
    for (const Curve& curve : curves) {
        const double value = (*curve.values)[1];
        AddDot(drawing, {diffuseX, Y(value)}, curve.look);
        lowest = std::max(Y(value) + 3.5, lowest + lineHeight);
        AddText(drawing, {diffuseX + 8, lowest}, FormatNumber(value, "0.000"), TextAnchor::start);
    }
}

void AddKey(Drawing& drawing, const std::vector<Curve>& curves) {
    constexpr double sample = 34;
    constexpr double entry = 130;
    const double y = top + height + 3 * lineHeight + 4;
    double x = left;
    for (const auto& [values, look] : curves) {
        drawing.Add(DrawnLine{{{x, y}, {x + sample, y}}, {look.colour, 1.8, look.dash}});
        AddDot(drawing, {x + sample / 2, y}, look);
        AddText(drawing, {x + sample + 6, y + 4}, look.name, TextAnchor::start);
        x += entry;
    }
}

} // namespace

Drawing DrawGlassCurves(const GlassType& type) {
    std::vector<Curve> curves = {{&type.transmission, transmissionLook},
                                 {&type.absorption, absorptionLook}};
    if (type.hasDiffusion)
        curves.push_back({&type.diffusion, diffusionLook});
    Drawing drawing;
    drawing.width = diffuseX + rightMargin;
    drawing.height = top + height + 4 * lineHeight;
    drawing.title = "Values over the angle of incidence";
    AddGrid(drawing);
    for (const auto& [values, look] : curves)
        AddCurve(drawing, *values, look);
    AddDiffuseValues(drawing, curves);
    AddKey(drawing, curves);
    return drawing;
}

} // namespace strativo
