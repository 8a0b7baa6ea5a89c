#pragma once

#include <QLabel>

namespace strativo {

/// The label of a list's visible row that a drag begins with. It is never shown and keeps its
/// caption: what the pointer carries is drawn.
class DragImage : public QLabel {
public:
    DragImage(const QString& objectName, const QString& caption, QWidget* parent);

    /// Draws the lines as if lifted from the list.
    const QPixmap& Draw(const QStringList& lines);
    /// What was drawn last.
    const QPixmap& Picture() const { return picture; }

private:
    QPixmap picture;
};

} // namespace strativo
