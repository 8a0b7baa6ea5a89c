#pragma once

#include <QColor>
#include <QFont>
#include <QObject>

class QApplication;
class QPalette;

namespace strativo {

/// The colour, changed as far as necessary for text to be readable on the background.
QColor Readable(const QColor& text, const QColor& background);

/// The colour, changed as far as necessary for a mark to be visible on the background.
QColor Visible(const QColor& mark, const QColor& background);

/// The palette, with colours changed so that selected text and links can be read.
QPalette WithReadableTexts(QPalette palette);

/// As long as it lives, it keeps up what the windows rely on: their controls are laid out for the
/// system's sans serif at 8 points, though desktops may set a font of their own after the start,
/// and selected rows and links must be readable in any palette.
class Appearance : public QObject {
    Q_OBJECT

public:
    explicit Appearance(QApplication& application);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void HoldFont();
    static void HoldPalette();
};

} // namespace strativo
