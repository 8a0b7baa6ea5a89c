#pragma once

namespace strativo {

/// Lets screen readers ask any profile graph for the selected point's value, and set it.
void MakeProfileGraphsAccessible();

} // namespace strativo
