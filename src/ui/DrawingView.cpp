#include "ui/DrawingView.h"

#include <QPainter>

#include <utility>

namespace strativo {

namespace {

constexpr int margin = 8;
constexpr double unitsPerInch = 96;

QPen PenOf(const Stroke& stroke) {
    QPen pen(QColor::fromRgb(static_cast<QRgb>(stroke.colour)), stroke.width);
    pen.setJoinStyle(Qt::RoundJoin);
    pen.setCapStyle(Qt::FlatCap);
    if (stroke.dash > 0)
        pen.setDashPattern({stroke.dash / stroke.width, stroke.dash / stroke.width});
    return pen;
}

QColor ColourOf(DrawnColour colour) {
    return QColor::fromRgb(static_cast<QRgb>(colour));
}

void Paint(QPainter& painter, const DrawnRectangle& rectangle) {
    painter.setPen(rectangle.edge ? PenOf(*rectangle.edge) : QPen(Qt::NoPen));
    painter.setBrush(rectangle.fill ? QBrush(ColourOf(*rectangle.fill)) : QBrush(Qt::NoBrush));
    painter.drawRect(
        QRectF(rectangle.corner.x, rectangle.corner.y, rectangle.width, rectangle.height));
}

void Paint(QPainter& painter, const DrawnLine& line) {
    QPolygonF points;
    for (const DrawnPoint& point : line.points)
        points << QPointF(point.x, point.y);
    painter.setPen(PenOf(line.stroke));
    painter.drawPolyline(points);
}

void Paint(QPainter& painter, const DrawnDot& dot) {
    painter.setPen(PenOf(dot.edge));
    painter.setBrush(ColourOf(dot.fill));
    painter.drawEllipse(QPointF(dot.centre.x, dot.centre.y), dot.radius, dot.radius);
}

void Paint(QPainter& painter, const DrawnText& text) {
    QFont font = painter.font();
    font.setPixelSize(qRound(text.size));
    painter.setFont(font);
    painter.setPen(ColourOf(text.colour));
    const QString shown = QString::fromStdString(text.utf8);
    const double width = QFontMetricsF(font, painter.device()).horizontalAdvance(shown);
    const double shift = text.anchor == TextAnchor::start    ? 0
                         : text.anchor == TextAnchor::middle ? width / 2
                                                             : width;
    painter.save();
    painter.translate(text.base.x, text.base.y);
    painter.rotate(text.upwards ? -90 : 0);
    painter.drawText(QPointF(-shift, 0), shown);
    painter.restore();
}

} // namespace

void PaintDrawing(QPainter& painter, const Drawing& drawing, const QRectF& place, double largest) {
    if (drawing.width <= 0 || drawing.height <= 0)
        return;
    const double scale =
        std::min({place.width() / drawing.width, place.height() / drawing.height, largest});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.x() + (place.width() - drawing.width * scale) / 2, place.y());
    painter.scale(scale, scale);
    for (const DrawnShape& shape : drawing.shapes)
        std::visit([&](const auto& kind) { Paint(painter, kind); }, shape);
    painter.restore();
}

DrawingView::DrawingView(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    setSizePolicy(policy);
    setMinimumSize(fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 8);
}

void DrawingView::Show(Drawing newDrawing) {
    drawing = std::move(newDrawing);
    setAccessibleDescription(QString::fromStdString(drawing.title));
    update();
}

QSize DrawingView::sizeHint() const {
    const double scale = logicalDpiX() / unitsPerInch;
    return QSizeF(drawing.width * scale, drawing.height * scale).toSize()
           + QSize(2 * margin, 2 * margin);
}

void DrawingView::paintEvent(QPaintEvent*) {
    constexpr double largest = 2;
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    const double scale = logicalDpiX() / unitsPerInch;
    PaintDrawing(painter, drawing, QRectF(rect()).adjusted(margin, margin, -margin, -margin),
                 largest * scale);
}

} // namespace strativo
