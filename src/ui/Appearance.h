#pragma once

#include <QColor>
#include <QFont>
#include <QObject>

class QApplication;
class QPalette;

namespace strativo {

/// The colour, moved as far as a text of that colour needs to be read on the background.
QColor Readable(const QColor& text, const QColor& background);

/// The colour, moved as far as a mark of that colour needs to be seen on the background.
QColor Visible(const QColor& mark, const QColor& background);

/// The palette with colours in which selected texts and links can be read.
QPalette WithReadableTexts(QPalette palette);

/// Keeps what the windows rely on for as long as it lives. Their controls have places for the
/// system's sans serif at 8 points, and desktops may set a font of their own after the start; and
/// selected rows and links are to be readable whatever palette comes.
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
