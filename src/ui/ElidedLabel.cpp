#include "ui/ElidedLabel.h"

#include <QPainter>

namespace strativo {

ElidedLabel::ElidedLabel(int mostCharacters, QWidget* parent, Qt::TextElideMode leftOut)
    : QLabel(parent), longest(mostCharacters), mode(leftOut) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::sizeHint() const {
    const QSize hint = QLabel::sizeHint();
    return {qMin(hint.width(), fontMetrics().averageCharWidth() * longest), hint.height()};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {1, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), mode, width()));
}

} // namespace strativo
