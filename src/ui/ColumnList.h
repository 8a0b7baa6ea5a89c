#pragma once

#include "ui/PlainList.h"

#include <string>
#include <vector>

namespace strativo {

/// A list of fixed-pitch lines with rows of a fixed height: the common part of the layer list and
/// the material list. It starts drags only beyond the platform's drag distance.
class ColumnList : public PlainList {
    Q_OBJECT

public:
    /// Height of a row, twips.
    static constexpr int rowHeight = 240;

    ColumnList(const QString& objectName, int rows, int heightInTwips, QWidget* parent);

    /// Replaces all lines; nothing is selected afterwards, no signal is sent, and the same line
    /// stays on top as far as there are so many. False, with nothing done, when these are shown
    /// already.
    virtual bool SetLines(const std::vector<std::string>& lines);
    /// The line (from 0) at the position, which may be behind the last one.
    int LineAt(const QPoint& position) const;
    int RowHeightInPixels() const;
    int TopLine() const;
    /// Width that shows lines of so many characters whole.
    int WidthFor(int characters) const;

signals:
    /// The pointer was moved far enough with the left button held.
    void DragWanted(int pressedLine, QPoint position, bool ctrlHeld);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    /// What a press, and a release without a drag after it, mean for the selection.
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
