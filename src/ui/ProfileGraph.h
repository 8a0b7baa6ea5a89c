#pragma once

#include "edit/GlassProfile.h"

#include <QPointF>
#include <QWidget>

namespace strativo {

/// The drawing area of the glass editor: the profile of one property over the angle of incidence.
/// Its whole size is the plot, so markers of the values 0 and 1 reach beyond it; the sheet that it
/// lies on draws their other halves.
class ProfileGraph : public QWidget {
    Q_OBJECT

public:
    explicit ProfileGraph(QWidget* parent);

    /// In twips, for the size that the widget has now.
    GraphGeometry Geometry() const;
    /// Shows a property; the other one is drawn thin behind, and what it leaves no room for is
    /// shaded: both together cannot be more than 1.
    void Show(const AngularValues& newValues, const AngularValues& newOthers,
              int newSelectedColumn);
    /// Where a value of a column is drawn, in logical pixels.
    QPointF PointOf(int column, double value) const;
    /// Draws grid, curve and markers from the painter's origin, beyond the widget's edges too.
    void Draw(QPainter& painter) const;
    /// Lets go of a point that is being dragged.
    void EndDrag() { dragging = false; }

signals:
    /// The left button went down; coordinates in twips.
    void Pressed(double x, double y);
    /// The pointer moved with the left button held; coordinate in twips.
    void Dragged(double y);

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
    AngularValues others; ///< of the property that is not edited
    int selectedColumn = 0;
    bool dragging = false;
};

} // namespace strativo
