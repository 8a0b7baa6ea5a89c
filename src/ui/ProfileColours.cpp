#include "ui/ProfileColours.h"

#include <QPalette>

namespace strativo {

const QColor ProfileColours::curve(0, 0, 128);
const QColor ProfileColours::marker(0, 0, 0);

ProfileColours ProfileColoursFor(const QPalette& palette) {
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    if (isDark)
        return {QColor(152, 157, 166), QColor(144, 149, 158), QColor(128, 133, 143),
                QColor(160, 165, 174), QColor(84, 89, 98),    QColor(16, 18, 22),
                QColor(84, 60, 34),    QColor(176, 148, 134), QColor(104, 0, 0)};
    return {Qt::white,
            QColor(236, 238, 242),
            QColor(212, 216, 224),
            QColor(246, 247, 250),
            QColor(140, 146, 158),
            QColor(60, 64, 72),
            QColor(150, 120, 90),
            QColor(251, 234, 222),
            QColor(176, 0, 0)};
}

} // namespace strativo
