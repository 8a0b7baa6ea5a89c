#pragma once

#include "draw/Drawing.h"

#include <string_view>

namespace strativo {

/// UTF-8 text escaped for XML and HTML; control characters become blanks.
std::string Escaped(std::string_view utf8);

/// A colour as CSS and SVG write it: "#b9573f".
std::string ColourText(DrawnColour colour);

/// The drawing as an `svg` element of that class, for use in an HTML page.
std::string SvgElement(const Drawing& drawing, const std::string& className);

/// The drawing as a file of its own.
std::string SvgFile(const Drawing& drawing);

} // namespace strativo
