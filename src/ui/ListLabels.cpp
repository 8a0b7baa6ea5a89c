#include "ui/ListLabels.h"

#include <QFontMetrics>
#include <QStyle>

#include <algorithm>

namespace strativo {

void BreakBeforeUnit(QLabel& heading) {
    heading.setWordWrap(true);
    const QString text = heading.text();
    const int unit = static_cast<int>(text.lastIndexOf(QLatin1Char(' '))) + 1;
    QString words = text.left(unit);
    while (words.endsWith(QLatin1Char(' ')))
        words.chop(1);
    const QFontMetrics font = heading.fontMetrics();
    const int needed =
        std::max(font.horizontalAdvance(words), font.horizontalAdvance(text.mid(unit)));
    const QRect place = heading.geometry();
    const QSize size(std::min(needed + 1, place.width()), place.height());
    heading.setGeometry(QStyle::alignedRect(Qt::LeftToRight, heading.alignment(), size, place));
}

} // namespace strativo
