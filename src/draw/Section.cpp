#include "draw/Section.h"

#include "calc/CavityTypes.h"
#include "draw/MaterialKind.h"
#include "draw/TemperatureAxis.h"
#include "text/Format.h"

#include <algorithm>

namespace strativo {

namespace {

constexpr double cavityWithoutWidth = 25; // mm
constexpr double top = 24;
constexpr double height = 150;
constexpr double axisWidth = 34;
constexpr double strip = 62; // of an air film
constexpr double rowHeight = 12;
constexpr double smallText = 9;

/// A layer as it is drawn.
struct Slice {
    int slot = 0;
    double x = 0;
    double width = 0;
};

/// Width in the section, mm. A cavity given by its resistance has no width of its own.
double WidthOf(const Layer& layer) {
    constexpr double widest = 10000;
    if (layer.conductivity == resistanceCavity)
        return cavityWithoutWidth;
    return std::clamp(layer.thickness, 0.0, widest);
}

/// The layers from outside to inside, from x on.
std::vector<Slice> SlicesOf(const Construction& construction, FirstLayer firstLayer, double x) {
    constexpr double widest = 500; // drawing units
    constexpr double unitsPerMillimetre = 1.4;
    constexpr double thinnest = 1.2; // keeps a foil visible
    std::vector<Slice> slices;
    double total = 0;
    for (int layer = 1; layer <= LayerCount(construction); ++layer) {
        slices.push_back({SlotOfLayer(construction, layer), 0, 0});
        total += WidthOf(construction.layers[slices.back().slot]);
    }
    if (firstLayer == FirstLayer::inside)
        std::reverse(slices.begin(), slices.end());
    const double scale = std::min(unitsPerMillimetre, widest / std::max(total, 1.0));
    for (Slice& slice : slices) {
        slice.x = x;
        slice.width = std::max(thinnest, WidthOf(construction.layers[slice.slot]) * scale);
        x += slice.width;
    }
    return slices;
}

class SectionDrawer {
public:
    SectionDrawer(const Construction& source, const ThermalConditions& chosen, HeatFlow direction)
        : construction(source), conditions(chosen), flow(direction),
          layers(ThermalLayersOf(source, chosen.firstLayer)) {}

    Drawing Draw() {
        constexpr double narrowest = 240;
        const bool withProfile = !layers.reason;
        left = withProfile ? axisWidth + strip : strip;
        slices = SlicesOf(construction, conditions.firstLayer, left);
        right = slices.empty() ? left : slices.back().x + slices.back().width;
        drawing.width = std::max(right + strip + rowHeight, narrowest);
        drawing.title = "Section to scale, outside on the left";
        below = top + height;
        if (withProfile)
            AddAxis();
        AddLayers();
        AddSlotNumbers();
        if (withProfile)
            AddProfile();
        else
            AddSides();
        AddNotes();
        drawing.height = below + rowHeight / 2;
        return std::move(drawing);
    }

private:
    double Y(double temperature) const {
        return top + height * (axis.Highest() - temperature) / (axis.step * axis.steps);
    }

    void Text(DrawnPoint base, const std::string& utf8, TextAnchor anchor,
              double size = DrawnText().size) {
        drawing.Add(DrawnText{base, utf8, anchor, size, inkColour, false});
    }

    void AddAxis() {
        constexpr double gap = 5;
        axis = TemperatureAxisFor(conditions.air);
        for (int mark = 0; mark <= axis.steps; ++mark) {
            const double y = Y(axis.Mark(mark));
            drawing.Add(DrawnLine{{{axisWidth, y}, {right + strip, y}}, {0xDDDDDD, 0.7, 0}});
            Text({axisWidth - gap, y + smallText / 3}, FormatGeneral(axis.Mark(mark)),
                 TextAnchor::end, smallText);
        }
        for (const double x : {axisWidth, right})
            drawing.Add(
                DrawnRectangle{{x, top}, strip, height, std::nullopt, Stroke{faintColour, 0.6, 3}});
        drawing.title += ", with the temperature through it";
    }

    void AddLayers() {
        for (const Slice& slice : slices) {
            const MaterialKind kind = KindOf(construction.layers[slice.slot]);
            const double dash = kind == MaterialKind::cavity ? 3 : 0;
            drawing.Add(DrawnRectangle{{slice.x, top},
                                       slice.width,
                                       height,
                                       KindColour(kind),
                                       Stroke{0x444444, 0.6, dash}});
        }
    }

    /// The layers' numbers below them; those of thin layers go to further rows.
    void AddSlotNumbers() {
        constexpr double room = 13;
        std::vector<double> rowEnds;
        for (const Slice& slice : slices) {
            const double x = slice.x + slice.width / 2;
            std::size_t row = 0;
            while (row < rowEnds.size() && x - rowEnds[row] < room)
                ++row;
            rowEnds.resize(std::max(rowEnds.size(), row + 1));
            rowEnds[row] = x;
            Text({x, top + height + rowHeight * static_cast<double>(row + 1)},
                 std::to_string(slice.slot), TextAnchor::middle, smallText);
        }
        below += rowHeight * static_cast<double>(rowEnds.size());
    }

    /// The points of the temperature line.
    std::vector<DrawnPoint> ProfileLine(const SteadyState& steady) const {
        std::vector<DrawnPoint> points = {{axisWidth, Y(conditions.air.outside)}};
        for (int i = 0; i < steady.pointCount; ++i) {
            const auto place = static_cast<std::size_t>(i);
            points.push_back({place < slices.size() ? slices[place].x : right,
                              Y(steady.points.at(place).temperature)});
        }
        points.push_back({right + strip, Y(conditions.air.inside)});
        return points;
    }

    void AddProfile() {
        const SteadyState steady =
            SteadyStateOf(layers.layers, conditions.FilmsFor(flow), conditions.air);
        const std::vector<DrawnPoint> line = ProfileLine(steady);
        drawing.Add(DrawnLine{line, {paperColour, 4.5, 0}}); // makes it stand out from dark layers
        drawing.Add(DrawnLine{line, {0x000000, 1.8, 0}});
        for (const std::size_t surface : {std::size_t(1), line.size() - 2})
            drawing.Add(DrawnDot{line[surface], 2.6, paperColour, {0x000000, 1.2, 0}});
        AddSurfaceLabels(steady, line[1], line[line.size() - 2]);
        Text({0, top - rowHeight}, "Outside air " + TemperatureText(conditions.air.outside) + " °C",
             TextAnchor::start);
        Text({drawing.width, top - rowHeight},
             "Inside air " + TemperatureText(conditions.air.inside) + " °C", TextAnchor::end);
        Text({axisWidth - 5, top + height + rowHeight}, "°C", TextAnchor::end, smallText);
    }

    /// On the side that the temperature line leaves free.
    void AddSurfaceLabels(const SteadyState& steady, DrawnPoint outside, DrawnPoint inside) {
        constexpr double gap = 6;
        const bool risesInwards = conditions.air.inside >= conditions.air.outside;
        const double above = -gap;
        const double under = smallText + gap;
        const auto clear = [](double y) {
            return std::clamp(y, top + smallText, top + height - 3);
        };
        Text({outside.x - gap, clear(outside.y + (risesInwards ? above : under))},
             TemperatureText(steady.OutsideSurface().temperature) + " °C", TextAnchor::end);
        const double y = inside.y + (risesInwards ? under : above - rowHeight);
        Text({inside.x + gap, clear(y)},
             TemperatureText(steady.InsideSurface().temperature) + " °C", TextAnchor::start);
        Text({inside.x + gap, clear(y) + rowHeight},
             "fRsi " + FormatNumber(steady.temperatureFactor, "0.000"), TextAnchor::start);
    }

    void AddSides() {
        const double middle = top + height / 2;
        Text({left - rowHeight, middle}, "Outside", TextAnchor::end);
        Text({right + rowHeight, middle}, "Inside", TextAnchor::start);
    }

    void AddNotes() {
        for (const Slice& slice : slices)
            if (construction.layers[slice.slot].conductivity == resistanceCavity)
                AddNote("Layer " + std::to_string(slice.slot) + ": width unknown");
        if (layers.reason)
            AddNote("Not available: " + ReasonText(layers.reason));
    }

    void AddNote(const std::string& utf8) {
        below += rowHeight;
        Text({axisWidth, below}, utf8, TextAnchor::start, smallText);
    }

    const Construction& construction;
    const ThermalConditions& conditions;
    HeatFlow flow;
    LayersOrReason layers;
    TemperatureAxis axis;
    std::vector<Slice> slices;
    double left = 0;  ///< x of the outside surface
    double right = 0; ///< x of the inside surface
    double below = 0; ///< y of the lowest item
    Drawing drawing;
};

} // namespace

Drawing DrawSection(const Construction& construction, const ThermalConditions& conditions,
                    HeatFlow flow) {
    return SectionDrawer(construction, conditions, flow).Draw();
}

} // namespace strativo
