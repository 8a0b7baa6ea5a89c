#include "draw/Svg.h"

#include "text/Format.h"

#include <array>
#include <cmath>

namespace strativo {

namespace {

std::string Number(double value) {
    return FormatGeneral(std::round(value * 100) / 100);
}

std::string Attribute(const char* name, const std::string& value) {
    return ' ' + std::string(name) + "=\"" + value + '"';
}

std::string Attribute(const char* name, double value) {
    return Attribute(name, Number(value));
}

std::string StrokeAttributes(const Stroke& stroke) {
    std::string text =
        Attribute("stroke", ColourText(stroke.colour)) + Attribute("stroke-width", stroke.width);
    if (stroke.dash > 0)
        text += Attribute("stroke-dasharray", stroke.dash);
    return text;
}

std::string Svg(const DrawnRectangle& rectangle) {
    return "<rect" + Attribute("x", rectangle.corner.x) + Attribute("y", rectangle.corner.y)
           + Attribute("width", rectangle.width) + Attribute("height", rectangle.height)
           + Attribute("fill", rectangle.fill ? ColourText(*rectangle.fill) : "none")
           + (rectangle.edge ? StrokeAttributes(*rectangle.edge) : "") + "/>\n";
}

std::string Svg(const DrawnLine& line) {
    std::string points;
    for (const DrawnPoint& point : line.points)
        points += (points.empty() ? "" : " ") + Number(point.x) + ',' + Number(point.y);
    return "<polyline" + Attribute("points", points) + Attribute("fill", "none")
           + StrokeAttributes(line.stroke) + Attribute("stroke-linejoin", "round") + "/>\n";
}

std::string Svg(const DrawnDot& dot) {
    return "<circle" + Attribute("cx", dot.centre.x) + Attribute("cy", dot.centre.y)
           + Attribute("r", dot.radius) + Attribute("fill", ColourText(dot.fill))
           + StrokeAttributes(dot.edge) + "/>\n";
}

std::string Svg(const DrawnText& text) {
    constexpr std::array<const char*, 3> anchors = {"start", "middle", "end"};
    std::string svg = "<text" + Attribute("x", text.base.x) + Attribute("y", text.base.y)
                      + Attribute("font-size", Number(text.size) + "px")
                      + Attribute("fill", ColourText(text.colour))
                      + Attribute("text-anchor", anchors.at(static_cast<std::size_t>(text.anchor)));
    if (text.upwards)
        svg += Attribute("transform",
                         "rotate(-90 " + Number(text.base.x) + ' ' + Number(text.base.y) + ')');
    return svg + '>' + Escaped(text.utf8) + "</text>\n";
}

std::string Element(const Drawing& drawing, const std::string& attributes) {
    std::string svg =
        "<svg" + attributes
        + Attribute("viewBox", "0 0 " + Number(drawing.width) + ' ' + Number(drawing.height))
        + Attribute("width", drawing.width) + Attribute("height", drawing.height)
        + Attribute("role", "img")
        + Attribute("font-family", "'Liberation Sans', 'DejaVu Sans', sans-serif") + ">\n<title>"
        + Escaped(drawing.title) + "</title>\n";
    for (const DrawnShape& shape : drawing.shapes)
        svg += std::visit([](const auto& kind) { return Svg(kind); }, shape);
    return svg + "</svg>\n";
}

} // namespace

std::string Escaped(std::string_view utf8) {
    constexpr char upperControls = '\xC2'; // followed by 80 to 9F
    std::string out;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        const auto code = static_cast<unsigned char>(c);
        const auto next = static_cast<unsigned char>(i + 1 < utf8.size() ? utf8[i + 1] : 0);
        if (c == upperControls && next >= 0x80 && next < 0xA0) {
            out += ' ';
            ++i;
        } else if (c == '&')
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

std::string ColourText(DrawnColour colour) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += digits[colour >> shift & 15];
    return text;
}

std::string SvgElement(const Drawing& drawing, const std::string& className) {
    return Element(drawing, Attribute("class", className));
}

std::string SvgFile(const Drawing& drawing) {
    Drawing onPaper = drawing;
    onPaper.shapes.insert(
        onPaper.shapes.begin(),
        DrawnRectangle{{0, 0}, drawing.width, drawing.height, paperColour, std::nullopt});
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           + Element(onPaper, Attribute("xmlns", "http://www.w3.org/2000/svg"));
}

} // namespace strativo
