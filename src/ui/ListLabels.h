#pragma once

#include <QLabel>

namespace strativo {

/// Lets the label of a column break before its unit, not within it: it becomes as wide as the wider
/// of the two, at its side (left, right or middle) of the place that it had.
void BreakBeforeUnit(QLabel& heading);

} // namespace strativo
