#include "ui/ProfileGraph.h"

#include "ui/ProfileColours.h"
#include "ui/ProfileGraphAccess.h"
#include "ui/Twips.h"

#include <QAccessible>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>

namespace strativo {

namespace {

constexpr int gridRows = 10;

} // namespace

ProfileGraph::ProfileGraph(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Graph"));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    MakeProfileGraphsAccessible();
}

GraphGeometry ProfileGraph::Geometry() const {
    return {ToTwips(width(), *this), ToTwips(height(), *this)};
}

void ProfileGraph::Show(const AngularValues& newValues, const AngularValues& newOthers,
                        int newSelectedColumn) {
    values = newValues;
    others = newOthers;
    selectedColumn = newSelectedColumn;
    parentWidget()->update();
    QAccessibleValueChangeEvent told(this, SelectedValue());
    QAccessible::updateAccessibility(&told);
}

QPointF ProfileGraph::PointOf(int column, double value) const {
    const GraphGeometry graph = Geometry();
    const double pixelsPerTwip = logicalDpiX() / twipsPerInch;
    return {graph.ColumnX(column) * pixelsPerTwip, graph.ValueY(value) * pixelsPerTwip};
}

void ProfileGraph::Draw(QPainter& painter) const {
    painter.save();
    // Coordinates refer to a pixel's corner; lines are sharp when drawn through pixel centres.
    painter.translate(0.5, 0.5);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawGrid(painter);
    DrawCurve(painter);
    DrawMarkers(painter);
    painter.restore();
}

void ProfileGraph::DrawGrid(QPainter& painter) const {
    const ProfileColours colours = ProfileColoursFor(palette());
    const double right = width();
    const double bottom = height();
    const double step = PointOf(1, 0).x();
    painter.fillRect(QRectF(step / 2, 0, step, bottom), colours.diffuseTint);
    ShadeImpossible(painter);
    for (int row = 1; row < gridRows; ++row) {
        const double y = PointOf(1, static_cast<double>(row) / gridRows).y();
        painter.setPen(row % 2 == 0 ? colours.grid : colours.lightGrid);
        painter.drawLine(QPointF(0, y), QPointF(right, y));
    }
    painter.setPen(colours.grid);
    for (int column = 1; column <= profileColumns; ++column)
        painter.drawLine(QPointF(PointOf(column, 0).x(), 0),
                         QPointF(PointOf(column, 0).x(), bottom));
    painter.setPen(QPen(hasFocus() ? palette().color(QPalette::Highlight) : colours.border,
                        hasFocus() ? 2 : 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(0, 0, right, bottom));
}

/// The diffuse value belongs to no angle, so the curve does not include it.
QPolygonF ProfileGraph::CurveOf(const AngularValues& ofValues) const {
    QPolygonF curve;
    for (int column = 2; column <= profileColumns; ++column)
        curve << PointOf(column, ofValues[column]);
    return curve;
}

void ProfileGraph::ShadeImpossible(QPainter& painter) const {
    AngularValues most;
    for (int column = 1; column <= profileColumns; ++column)
        most[column] = 1 - others[column];
    QPolygonF band = CurveOf(most);
    band << PointOf(profileColumns, 1) << PointOf(2, 1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ProfileColoursFor(palette()).impossible);
    painter.drawPolygon(band);
    const QPointF diffuse = PointOf(1, most[1]);
    painter.drawRect(QRectF(diffuse.x() / 2, 0, diffuse.x(), diffuse.y()));
}

void ProfileGraph::DrawCurve(QPainter& painter) const {
    painter.setPen(QPen(ProfileColoursFor(palette()).otherCurve, 1, Qt::DashLine));
    painter.drawPolyline(CurveOf(others));
    painter.drawEllipse(PointOf(1, others[1]), 1.5, 1.5);
    painter.setPen(QPen(ProfileColours::curve, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(CurveOf(values));
}

void ProfileGraph::DrawMarkers(QPainter& painter) const {
    const double radius = markerRadius * logicalDpiX() / twipsPerInch;
    painter.setPen(QPen(ProfileColours::marker, 1));
    for (int column = 1; column <= profileColumns; ++column) {
        painter.setBrush(column == selectedColumn ? QBrush(ProfileColours::marker)
                                                  : QBrush(Qt::NoBrush));
        painter.drawEllipse(PointOf(column, values[column]), radius, radius);
    }
    DrawOutsideFigures(painter);
}

/// A marker at the edge does not show how far beyond it the file's value is, so the figure does.
void ProfileGraph::DrawOutsideFigures(QPainter& painter) const {
    const double step = PointOf(1, 0).x();
    const int line = fontMetrics().height();
    painter.setPen(ProfileColoursFor(palette()).warning);
    for (int column = 1; column <= profileColumns; ++column) {
        const double value = values[column];
        if (value >= 0 && value <= 1)
            continue;
        const QPointF point = PointOf(column, value);
        const double top = value > 1 ? point.y() + line / 2.0 : point.y() - 1.5 * line;
        painter.drawText(QRectF(point.x() - step, top, 2 * step, line), Qt::AlignCenter,
                         QString::number(value, 'g', 4));
    }
}

void ProfileGraph::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ProfileColoursFor(palette()).paper);
    Draw(painter);
}

void ProfileGraph::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    dragging = true;
    emit Pressed(ToTwips(event->position().x(), *this), ToTwips(event->position().y(), *this));
}

void ProfileGraph::mouseMoveEvent(QMouseEvent* event) {
    if (dragging && event->buttons().testFlag(Qt::LeftButton))
        emit Dragged(ToTwips(event->position().y(), *this));
}

void ProfileGraph::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        EndDrag();
}

void ProfileGraph::focusInEvent(QFocusEvent*) {
    parentWidget()->update();
}

void ProfileGraph::focusOutEvent(QFocusEvent*) {
    EndDrag();
    parentWidget()->update();
}

} // namespace strativo
