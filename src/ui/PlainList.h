#pragma once

#include <QListWidget>

namespace strativo {

/// A list whose focused line moves only by clicks and keys, and which leaves the system clipboard
/// alone.
class PlainList : public QListWidget {
    Q_OBJECT

public:
    using QListWidget::QListWidget;

protected:
    void focusInEvent(QFocusEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

    /// Focuses the line (-1 for none) without changing the selection.
    void FocusLine(int line);
};

} // namespace strativo
