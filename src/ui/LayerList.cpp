#include "ui/LayerList.h"

#include "edit/LayerDrag.h"
#include "ui/Appearance.h"
#include "ui/KeyRepeat.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>

namespace strativo {

std::optional<QAbstractItemView::CursorAction> LayerList::MoveOf(int key) {
    switch (key) {
    case Qt::Key_Up:
        return MoveUp;
    case Qt::Key_Down:
        return MoveDown;
    case Qt::Key_Home:
        return MoveHome;
    case Qt::Key_End:
        return MoveEnd;
    case Qt::Key_PageUp:
        return MovePageUp;
    case Qt::Key_PageDown:
        return MovePageDown;
    default:
        return std::nullopt;
    }
}

LayerList::LayerList(QWidget* parent)
    : ColumnList(QStringLiteral("Construction"), visibleLayerRows, listHeight, parent) {
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    setAutoScroll(true);
}

void LayerList::SetMarks(const std::vector<bool>& marks, int focusedLine) {
    if (currentRow() == focusedLine && Marks() == marks)
        return; // leaves a range selection in progress alone
    const QSignalBlocker blocked(this);
    for (int line = 0; line < count(); ++line)
        item(line)->setSelected(static_cast<std::size_t>(line) < marks.size()
                                && marks[static_cast<std::size_t>(line)]);
    FocusLine(focusedLine);
    rangeStart = focusedLine;
}

std::vector<bool> LayerList::Marks() const {
    std::vector<bool> marks;
    for (int line = 0; line < count(); ++line)
        marks.push_back(item(line)->isSelected());
    return marks;
}

void LayerList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) {
        // If the key was held down while a box was in front, this is only a repeat.
        deletePressed = deletePressed || !IsRepeat(*event);
        return;
    }
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter && !ExtendRange(*event)) {
        ColumnList::keyPressEvent(event);
        MarkWhereMoveEnds(*event);
        if (!(event->modifiers() & Qt::ShiftModifier))
            rangeStart = currentRow();
    }
    if (count() > 0)
        emit LineTouched(currentRow());
}

/// The focused line can be unmarked. A key that would move beyond the end stays on it and marks it,
/// like a move to any other line.
void LayerList::MarkWhereMoveEnds(const QKeyEvent& event) {
    const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!plain || !MoveOf(event.key()) || currentItem() == nullptr || currentItem()->isSelected())
        return;
    clearSelection();
    currentItem()->setSelected(true);
}

/// Handles Shift with a key that moves through the lines. Qt's own range would start where its
/// keyboard was last used, not at the line clicked since.
bool LayerList::ExtendRange(const QKeyEvent& event) {
    const std::optional<CursorAction> action = MoveOf(event.key());
    if (!action || count() == 0 || !(event.modifiers() & Qt::ShiftModifier))
        return false;
    const QModelIndex next = moveCursor(*action, event.modifiers());
    if (!next.isValid())
        return true;
    MarkRange(next.row());
    FocusLine(next.row());
    return true;
}

void LayerList::MarkRange(int line) {
    const auto [from, to] = std::minmax(std::clamp(rangeStart, 0, count() - 1), line);
    for (int i = 0; i < count(); ++i)
        item(i)->setSelected(i >= from && i <= to);
}

void LayerList::keyReleaseEvent(QKeyEvent* event) {
    // A held key repeats, and the press may have gone to a box that has closed since. So only the
    // end of a press that was made here counts, or what looks like one when Qt does not recognise a
    // repeat.
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (event->key() == Qt::Key_Delete && !event->isAutoRepeat()) {
        const bool wasPressed = deletePressed;
        deletePressed = false;
        if (wasPressed && plain)
            emit DeleteReleased();
        return;
    }
    ColumnList::keyReleaseEvent(event);
}

void LayerList::focusOutEvent(QFocusEvent* event) {
    deletePressed = false;
    ColumnList::focusOutEvent(event);
}

void LayerList::PressLine(int line, Qt::KeyboardModifiers modifiers) {
    if (modifiers & Qt::ShiftModifier) {
        MarkRange(line);
    } else {
        rangeStart = line;
        // A press on a marked line may begin a drag of all marked lines, so the marks stay until
        // the release.
        if (!(modifiers & Qt::ControlModifier) && !item(line)->isSelected()) {
            clearSelection();
            item(line)->setSelected(true);
        }
    }
    FocusLine(line);
    emit LineTouched(line);
}

void LayerList::ReleaseLine(int line, Qt::KeyboardModifiers modifiers) {
    if (line >= count() || (modifiers & Qt::ShiftModifier))
        return;
    if (modifiers & Qt::ControlModifier) {
        item(line)->setSelected(!item(line)->isSelected());
    } else {
        clearSelection();
        item(line)->setSelected(true);
    }
    emit LineTouched(line);
}

void LayerList::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void LayerList::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(KindOfDrag(*event) != DragKind::none);
}

void LayerList::dragMoveEvent(QDragMoveEvent* event) {
    ColumnList::dragMoveEvent(event); // scrolls at the edges
    event->setAccepted(KindOfDrag(*event) != DragKind::none);
    ShowDropRow(std::min(LineAt(event->position().toPoint()), count()));
}

void LayerList::dragLeaveEvent(QDragLeaveEvent* event) {
    ColumnList::dragLeaveEvent(event);
    ShowDropRow(-1);
}

void LayerList::dropEvent(QDropEvent* event) {
    const DragKind kind = KindOfDrag(*event);
    const int row = LineAt(event->position().toPoint());
    stopAutoScroll();
    setState(QAbstractItemView::NoState);
    ShowDropRow(-1);
    event->setAccepted(kind != DragKind::none);
    if (kind != DragKind::none)
        emit Dropped(kind, row);
}

void LayerList::ShowDropRow(int row) {
    dropRow = row;
    viewport()->update();
}

void LayerList::paintEvent(QPaintEvent* event) {
    ColumnList::paintEvent(event);
    QPainter painter(viewport());
    if (currentItem() != nullptr)
        DrawFocus(painter);
    if (dropRow >= 0)
        DrawDropMark(painter);
}

/// The line that entries and insertions act on, marked or not.
void LayerList::DrawFocus(QPainter& painter) const {
    const QPalette::ColorRole role = currentItem()->isSelected() ? QPalette::HighlightedText
                                     : hasFocus()                ? QPalette::Highlight
                                                                 : QPalette::Mid;
    painter.setPen(QPen(palette().color(role), 1, Qt::DashLine));
    const QRect row = visualItemRect(currentItem());
    painter.drawRect(1, row.top(), viewport()->width() - 3, row.height() - 1);
}

void LayerList::DrawDropMark(QPainter& painter) const {
    const int y =
        std::clamp((dropRow - TopLine()) * RowHeightInPixels(), 1, viewport()->height() - 1);
    const QColor mark = palette().color(QPalette::Highlight);
    painter.setPen(QPen(Visible(mark, palette().color(QPalette::Base)), 2));
    painter.drawLine(0, y, viewport()->width(), y);
}

} // namespace strativo
