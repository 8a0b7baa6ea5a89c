#pragma once

#include "ui/ColumnList.h"

#include <QTimer>

namespace strativo {

/// The material list of the Select Material dialog: one line selected at a time.
class MaterialList : public ColumnList {
    Q_OBJECT

public:
    /// Height of the list, twips: four rows.
    static constexpr int listHeight = 990;

    explicit MaterialList(QWidget* parent);

    /// The selected line (from 0), or -1. A line that merely has the focus is not selected.
    int SelectedLine() const;
    /// Selects a line, or none for -1, without sending a signal.
    void SelectLine(int line);
    /// Replaces the lines and scrolls to the first.
    bool SetLines(const std::vector<std::string>& lines) override;
    /// Typed letters lead to a material whose name begins with them or contains them; the main
    /// window's status bar shows them.
    void keyboardSearch(const QString& letters) override;

signals:
    void LineDoubleClicked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void PressLine(int line, Qt::KeyboardModifiers modifiers) override;
    void ReleaseLine(int line, Qt::KeyboardModifiers modifiers) override;

private:
    void Search();
    void EndSearch();
    void Say(const QString& text);

    QString typed;
    QTimer searching; ///< runs as long as further letters are added to those typed so far
};

} // namespace strativo
