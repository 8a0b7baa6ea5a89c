#pragma once

#include <QColor>

class QPalette;

namespace strativo {

/// The colours of the glass editor's graph. Curve and markers have fixed, dark colours, so in a
/// dark palette the paper is only darkened as far as they remain visible.
struct ProfileColours {
    QColor paper;
    QColor lightGrid;
    QColor grid;
    QColor diffuseTint;
    QColor border;
    QColor figures;
    QColor otherCurve; ///< curve of the property that is not being edited
    QColor impossible; ///< area where both properties add up to more than 1
    QColor warning;    ///< figures of values beyond the graph

    static const QColor curve;
    static const QColor marker;
};

ProfileColours ProfileColoursFor(const QPalette& palette);

} // namespace strativo
