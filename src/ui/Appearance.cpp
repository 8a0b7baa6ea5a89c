#include "ui/Appearance.h"

#include "draw/Contrast.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>

namespace strativo {

namespace {

constexpr double fontSize = 8.25; // points

DrawnColour Drawn(const QColor& colour) {
    return static_cast<DrawnColour>(colour.rgb() & 0xFFFFFF);
}

QColor Shown(DrawnColour colour) {
    return QColor::fromRgb(static_cast<QRgb>(colour));
}

} // namespace

QColor Readable(const QColor& text, const QColor& background) {
    return Shown(WithContrast(Drawn(text), Drawn(background), readableContrast));
}

QColor Visible(const QColor& mark, const QColor& background) {
    return Shown(WithContrast(Drawn(mark), Drawn(background), visibleContrast));
}

QPalette WithReadableTexts(QPalette palette) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor text = palette.color(group, QPalette::HighlightedText);
        const QColor highlight = palette.color(group, QPalette::Highlight);
        const QColor moved = Readable(highlight, text);
        if (moved != highlight)
            palette.setColor(group, QPalette::Highlight, moved);
        for (const auto link : {QPalette::Link, QPalette::LinkVisited}) {
            const QColor colour = palette.color(group, link);
            const QColor readable = Readable(colour, palette.color(group, QPalette::Base));
            if (readable != colour)
                palette.setColor(group, link, readable);
        }
    }
    return palette;
}

Appearance::Appearance(QApplication& application) {
    application.installEventFilter(this);
    HoldFont();
    HoldPalette();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationFontChange)
        HoldFont();
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        HoldPalette();
    return false;
}

/// Any font family will do, but the places of the controls depend on its style and size.
void Appearance::HoldFont() {
    QFont held(QApplication::font().families());
    held.setPointSizeF(fontSize);
    if (QApplication::font() != held)
        QApplication::setFont(held);
}

void Appearance::HoldPalette() {
    const QPalette palette = QApplication::palette();
    const QPalette held = WithReadableTexts(palette);
    if (held != palette)
        QApplication::setPalette(held);
}

} // namespace strativo
