#pragma once

#include <QColor>

class QPalette;

namespace strativo {

/// The colours of the glass editor's graph. Those of curve and markers are fixed, and both are
/// dark: in a dark palette the paper is dimmed as far as leaves them to be seen.
struct ProfileColours {
    QColor paper;
    QColor lightGrid;
    QColor grid;
    QColor diffuseTint;
    QColor border;
    QColor figures;
    QColor otherCurve; ///< of the property that is not being edited
    QColor impossible; ///< where both properties add up to more than 1
    QColor warning;    ///< figures of values beyond the graph

    static const QColor curve;
    static const QColor marker;
};

ProfileColours ProfileColoursFor(const QPalette& palette);

} // namespace strativo
