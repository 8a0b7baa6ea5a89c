#pragma once

#include "ui/ColumnList.h"

namespace strativo {

/// The material list of the Select Material dialog: one line selected at a time.
class MaterialList : public ColumnList {
    Q_OBJECT

public:
    /// Height of the list, twips: four rows.
    static constexpr int listHeight = 990;

    explicit MaterialList(QWidget* parent);

    /// The selected line (from 0); -1 for none. A line that merely has the focus is not selected.
    int SelectedLine() const;
    /// Selects a line, or none for -1, without sending a signal.
    void SelectLine(int line);

signals:
    void LineDoubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void PressLine(int line, Qt::KeyboardModifiers modifiers) override;
    void ReleaseLine(int line, Qt::KeyboardModifiers modifiers) override;
};

} // namespace strativo
