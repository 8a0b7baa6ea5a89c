#pragma once

#include <QLabel>

namespace strativo {

/// A label for the visible row of a list where a drag begins. It is never shown, and its caption
/// stays as it is: what the pointer carries is drawn separately.
class DragImage : public QLabel {
public:
    DragImage(const QString& objectName, const QString& caption, QWidget* parent);

    /// Draws the lines as if they were lifted off the list.
    const QPixmap& Draw(const QStringList& lines);
    /// What was drawn last.
    const QPixmap& Picture() const { return picture; }

private:
    QPixmap picture;
};

} // namespace strativo
