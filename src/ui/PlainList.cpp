#include "ui/PlainList.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace strativo {

void PlainList::focusInEvent(QFocusEvent* event) {
    const QModelIndex before = currentIndex();
    QListWidget::focusInEvent(event);
    // Merely getting the focus must not move the current line.
    if (currentIndex() != before)
        FocusLine(before.row());
}

QModelIndex PlainList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // Without a focused line, every key would go to the first one.
    if (action == MoveEnd && !currentIndex().isValid() && count() > 0)
        return model()->index(count() - 1, 0);
    return QListWidget::moveCursor(action, modifiers);
}

void PlainList::FocusLine(int line) {
    selectionModel()->setCurrentIndex(line < 0 ? QModelIndex() : model()->index(line, 0),
                                      QItemSelectionModel::NoUpdate);
}

void PlainList::keyPressEvent(QKeyEvent* event) {
    // Qt would copy the line to the system clipboard, over what the user has there.
    if (!event->matches(QKeySequence::Copy))
        QListWidget::keyPressEvent(event);
}

void PlainList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QListWidget::mouseDoubleClickEvent(event);
}

} // namespace strativo
