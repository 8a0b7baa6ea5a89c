#include "ui/ProfileSheet.h"

#include "ui/ProfileColours.h"
#include "ui/ProfileGraph.h"
#include "ui/Twips.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

namespace strativo {

namespace {

// The sizes make the steps between columns and between tenths whole pixels at the usual 96 dots per
// inch.
constexpr double graphWidth = 8250; // twips
constexpr double graphHeight = 4500;
constexpr double lowestGraph = 1500;

constexpr int gap = 6;
constexpr int outerMargin = 10;

} // namespace

ProfileSheet::ProfileSheet(QWidget* parent) : QWidget(parent), graph(new ProfileGraph(this)) {
    const int line = fontMetrics().height();
    const int left = outerMargin + line + gap + fontMetrics().horizontalAdvance(tr("0.0")) + gap;
    const int top = outerMargin + line / 2;
    const int below = gap + line + gap + line + outerMargin;
    graph->setFixedSize(FromTwips(graphWidth, *this), FromTwips(graphHeight, *this));
    graph->move(left, top);
    setFixedSize(left + graph->width() + outerMargin + line / 2, top + graph->height() + below);
}

void ProfileSheet::LowerBy(int pixels) {
    const int lowest = FromTwips(lowestGraph, *this);
    const int less = std::min(pixels, graph->height() - lowest);
    graph->setFixedHeight(graph->height() - less);
    setFixedHeight(height() - less);
}

void ProfileSheet::Show(const AngularValues& values, const AngularValues& others,
                        int selectedColumn, const QString& newValueName) {
    valueName = newValueName;
    graph->Show(values, others, selectedColumn);
}

void ProfileSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ProfileColours colours = ProfileColoursFor(palette());
    painter.fillRect(rect(), colours.paper);
    painter.setPen(colours.border);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.translate(graph->pos());
    graph->Draw(painter);
    painter.setPen(colours.figures);
    DrawValueAxis(painter);
    DrawAngleAxis(painter);
}

/// Markers at 0 and 1 extend beyond the graph's edges, and can be grabbed there as well.
void ProfileSheet::mousePressEvent(QMouseEvent* event) {
    const double radius = markerRadius * logicalDpiX() / twipsPerInch;
    const QRectF reach = QRectF(graph->geometry()).adjusted(-radius, -radius, radius, radius);
    if (event->button() != Qt::LeftButton || !reach.contains(event->position()))
        return;
    graph->setFocus(Qt::MouseFocusReason);
    PassToGraph(*event);
}

void ProfileSheet::mouseMoveEvent(QMouseEvent* event) {
    PassToGraph(*event);
}

void ProfileSheet::mouseReleaseEvent(QMouseEvent* event) {
    PassToGraph(*event);
}

void ProfileSheet::PassToGraph(const QMouseEvent& event) const {
    QMouseEvent passed(event.type(), graph->mapFromParent(event.position()), event.globalPosition(),
                       event.button(), event.buttons(), event.modifiers());
    QCoreApplication::sendEvent(graph, &passed);
}

void ProfileSheet::DrawValueAxis(QPainter& painter) const {
    const int line = fontMetrics().height();
    const int width = fontMetrics().horizontalAdvance(tr("0.0"));
    for (int fifth = 0; fifth <= 5; ++fifth) {
        const double y = graph->PointOf(1, fifth / 5.0).y();
        painter.drawText(QRectF(-gap - width, y - line / 2.0, width, line),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(fifth / 5.0, 'f', 1));
    }
    painter.save();
    painter.translate(-graph->x() + outerMargin, graph->height());
    painter.rotate(-90);
    painter.drawText(QRectF(0, 0, graph->height(), line), Qt::AlignCenter, valueName);
    painter.restore();
}

void ProfileSheet::DrawAngleAxis(QPainter& painter) const {
    const int line = fontMetrics().height();
    const double step = graph->PointOf(1, 0).x();
    const double top = graph->height() + gap;
    for (int column = 1; column <= profileColumns; ++column) {
        const QString figure =
            column == 1 ? tr("Diffuse") : QString::number(IncidenceAngle(column));
        // Wider than its column, since "Diffuse" has no neighbour on the left.
        painter.drawText(QRectF(graph->PointOf(column, 0).x() - step, top, 2 * step, line),
                         Qt::AlignHCenter | Qt::AlignTop, figure);
    }
    const double first = graph->PointOf(2, 0).x();
    painter.drawText(
        QRectF(first, top + line + gap, graph->PointOf(profileColumns, 0).x() - first, line),
        Qt::AlignHCenter | Qt::AlignTop, tr("Angle of incidence (degrees)"));
}

} // namespace strativo
