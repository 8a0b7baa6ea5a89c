#pragma once

#include <QLabel>

namespace strativo {

/// Lets the label of a column break before its unit but not within it. It becomes as wide as the
/// wider of the two parts and keeps its left, right or middle where it was.
void BreakBeforeUnit(QLabel& heading);

} // namespace strativo
