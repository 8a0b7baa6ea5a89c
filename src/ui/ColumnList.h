#pragma once

#include "ui/PlainList.h"

#include <string>
#include <vector>

namespace strativo {

/// A list of fixed-pitch lines in rows of a fixed height, the common part of the layer list and the
/// material list. Drags start only beyond the platform's drag distance.
class ColumnList : public PlainList {
    Q_OBJECT

public:
    /// Height of a row, twips.
    static constexpr int rowHeight = 240;

    ColumnList(const QString& objectName, int rows, int heightInTwips, QWidget* parent);

    /// Replaces all lines, leaving none selected and sending no signal; the top line stays the same
    /// if there are enough lines. Returns false without doing anything if these lines are already
    /// shown.
    virtual bool SetLines(const std::vector<std::string>& lines);
    /// The line (from 0) at the position; it may be beyond the last one.
    int LineAt(const QPoint& position) const;
    int RowHeightInPixels() const;
    int TopLine() const;
    /// The width needed to show lines of that many characters.
    int WidthFor(int characters) const;

signals:
    /// The pointer was moved far enough for a drag, with the left button held.
    void DragWanted(int pressedLine, QPoint position, bool ctrlHeld);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    /// What a press does to the selection, and what a release does when no drag came before it.
    virtual void PressLine(int line, Qt::KeyboardModifiers modifiers) = 0;
    virtual void ReleaseLine(int line, Qt::KeyboardModifiers modifiers) = 0;

private:
    std::vector<std::string> shownLines;
    int visibleRows;
    int pressedLine = -1;
    bool pressed = false;
    QPoint pressPosition;
};

/// The fixed-pitch font of the lists.
QFont ColumnFont();

} // namespace strativo
