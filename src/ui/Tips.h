#pragma once

#include <QObject>
#include <QRect>
#include <QString>

class QWidget;

namespace strativo {

/// Under this role a list's line keeps the plain text that it tells in its tooltip, if that is not
/// the line itself.
inline constexpr int toldRole = Qt::UserRole;

/// The text in lines of at most that many characters, broken at blanks where possible.
QString InLines(const QString& text, int longest);

/// Shows the tip beside the control, in lines of at most 60 characters, as long as the pointer
/// rests on that part of it; on any part for an empty rectangle.
void ShowTip(QWidget& control, const QString& text, QRect part = {});

/// Shows the tooltips of all windows in lines of at most 60 characters. They appear below the whole
/// control (or above it at the end of the screen), so that none covers the row or point it
/// describes. A list's line that is cut off tells all of it.
class Tips : public QObject {
public:
    explicit Tips(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace strativo
