#include "ui/TitleButton.h"

#include <QPainter>

namespace strativo {

TitleButton::TitleButton(QWidget* parent) : QToolButton(parent) {
    setAutoRaise(true); // makes Qt repaint it when the pointer enters and leaves
}

void TitleButton::Show(Sign newSign, const QColor& newColour, const QColor& newBar) {
    sign = newSign;
    colour = newColour;
    bar = newBar;
    update();
}

/// Moves away from the sign's colour, so that the sign is easier to see under the pointer.
QColor TitleButton::Background() const {
    constexpr int hovered = 20; // per cent of the way to black or white
    constexpr int pressed = 40;
    if (!underMouse() && !isDown())
        return bar;
    const int part = isDown() ? pressed : hovered;
    const int goal = colour.lightness() > bar.lightness() ? 0 : 255;
    const auto moved = [&](int component) { return component + (goal - component) * part / 100; };
    return {moved(bar.red()), moved(bar.green()), moved(bar.blue())};
}

void TitleButton::paintEvent(QPaintEvent*) {
    constexpr double size = 10;
    QPainter painter(this);
    painter.fillRect(rect(), Background());
    painter.translate((width() - size) / 2.0, (height() - size) / 2.0);
    painter.setRenderHint(QPainter::Antialiasing, sign == Sign::close);
    painter.setPen(QPen(colour, 1.5));
    if (sign == Sign::minimise)
        painter.drawLine(QPointF(1, size - 2), QPointF(size - 1, size - 2));
    else if (sign == Sign::restore)
        painter.drawRect(QRectF(1, 1, size - 3, size - 3));
    else
        painter.drawLines({QLineF(1, 1, size - 1, size - 1), QLineF(1, size - 1, size - 1, 1)});
}

} // namespace strativo
