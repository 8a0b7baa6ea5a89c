#pragma once

#include "ui/ColumnList.h"
#include "ui/DragPayload.h"

#include <optional>

namespace strativo {

/// The layer list of a construction window.
class LayerList : public ColumnList {
    Q_OBJECT

public:
    /// Height of the list, twips.
    static constexpr int listHeight = 2190;

    explicit LayerList(QWidget* parent);

    /// Marks the lines and focuses one (-1 for none) without sending a signal.
    void SetMarks(const std::vector<bool>& marks, int focusedLine);
    std::vector<bool> Marks() const;

signals:
    /// A line was clicked, or the keyboard was used in the list.
    void LineTouched(int line);
    /// Delete was pressed and released here.
    void DeleteReleased();
    void Dropped(DragKind kind, int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    void PressLine(int line, Qt::KeyboardModifiers modifiers) override;
    void ReleaseLine(int line, Qt::KeyboardModifiers modifiers) override;

private:
    static std::optional<CursorAction> MoveOf(int key);
    void MarkWhereMoveEnds(const QKeyEvent& event);
    bool ExtendRange(const QKeyEvent& event);
    void MarkRange(int line);
    void ShowDropRow(int row);
    void DrawFocus(QPainter& painter) const;
    void DrawDropMark(QPainter& painter) const;

    bool deletePressed = false;
    int rangeStart = 0; ///< line from which Shift marks a range
    int dropRow = -1;   ///< row where a drop would insert; -1 when nothing is dragged over the list
};

} // namespace strativo
