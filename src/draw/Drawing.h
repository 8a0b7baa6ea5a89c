#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace strativo {

/// Lengths are drawing units, 96 to the inch; x grows to the right, y downwards.
struct DrawnPoint {
    double x = 0;
    double y = 0;
};

/// Red, green and blue as 0xRRGGBB.
using DrawnColour = int;
inline constexpr DrawnColour inkColour = 0x222222;
inline constexpr DrawnColour paperColour = 0xFFFFFF;
inline constexpr DrawnColour faintColour = 0x888888;

struct Stroke {
    DrawnColour colour = inkColour;
    double width = 1;
    double dash = 0; ///< length of a dash and of the gap behind it; 0: a line without gaps
};

struct DrawnRectangle {
    DrawnPoint corner; ///< upper left
    double width = 0;
    double height = 0;
    std::optional<DrawnColour> fill;
    std::optional<Stroke> edge;
};

/// Straight from point to point.
struct DrawnLine {
    std::vector<DrawnPoint> points;
    Stroke stroke;
};

struct DrawnDot {
    DrawnPoint centre;
    double radius = 0;
    DrawnColour fill = inkColour;
    Stroke edge;
};

enum class TextAnchor { start, middle, end };

struct DrawnText {
    DrawnPoint base; ///< on the baseline, at the anchor
    std::string utf8;
    TextAnchor anchor = TextAnchor::start;
    double size = 10;
    DrawnColour colour = inkColour;
    bool upwards = false; ///< turned by 90 degrees, to be read upwards
};

using DrawnShape = std::variant<DrawnRectangle, DrawnLine, DrawnDot, DrawnText>;

/// Shapes in drawing order, on white paper with its corner at 0, 0.
struct Drawing {
    double width = 0;
    double height = 0;
    std::string title; ///< a description in UTF-8 for those who cannot see it
    std::vector<DrawnShape> shapes;

    void Add(DrawnShape shape) { shapes.push_back(std::move(shape)); }
};

} // namespace strativo
