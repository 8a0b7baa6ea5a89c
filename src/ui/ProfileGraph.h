#pragma once

#include "edit/GlassProfile.h"

#include <QPointF>
#include <QWidget>

namespace strativo {

/// The drawing area of the glass editor: the profile of one property over the angle of incidence.
/// The plot fills all of it, so markers at 0 and 1 extend beyond it; the sheet below draws their
/// other halves.
class ProfileGraph : public QWidget {
    Q_OBJECT

public:
    explicit ProfileGraph(QWidget* parent);

    /// In twips, for the widget's present size.
    GraphGeometry Geometry() const;
    /// Shows a property. The other one is drawn thin behind it, and the area that it rules out is
    /// shaded: both together cannot exceed 1.
    void Show(const AngularValues& newValues, const AngularValues& newOthers,
              int newSelectedColumn);
    /// Where a value of a column is drawn, in logical pixels.
    QPointF PointOf(int column, double value) const;
    /// Draws grid, curve and markers relative to the painter's origin, also beyond the widget's
    /// edges.
    void Draw(QPainter& painter) const;
    /// The value of the selected column; 0 while none is selected.
    double SelectedValue() const { return selectedColumn == 0 ? 0 : values[selectedColumn]; }
    /// Lets go of a point that is being dragged.
    void EndDrag() { dragging = false; }

signals:
    /// The left button went down; coordinates in twips.
    void Pressed(double x, double y);
    /// The pointer moved with the left button held; coordinate in twips.
    void Dragged(double y);
    /// A screen reader sets the value of the selected column.
    void ValueGiven(double value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void ShadeImpossible(QPainter& painter) const;
    void DrawGrid(QPainter& painter) const;
    QPolygonF CurveOf(const AngularValues& ofValues) const;
    void DrawCurve(QPainter& painter) const;
    void DrawMarkers(QPainter& painter) const;

    void DrawOutsideFigures(QPainter& painter) const;

    AngularValues values;
    AngularValues others; ///< values of the property that is not being edited
    int selectedColumn = 0;
    bool dragging = false;
};

} // namespace strativo
