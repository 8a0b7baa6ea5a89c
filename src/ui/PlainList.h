#pragma once

#include <QListWidget>

namespace strativo {

/// A list whose focused line is moved by clicks and keys alone, and which leaves the system's
/// clipboard to the user.
class PlainList : public QListWidget {
    Q_OBJECT

public:
    using QListWidget::QListWidget;

protected:
    void focusInEvent(QFocusEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

    /// Makes the line the focused one without touching the selection; -1 for none.
    void FocusLine(int line);
};

} // namespace strativo
