#pragma once

#include "edit/WindowList.h"

#include <QDialog>

#include <vector>

class QLineEdit;
class QPushButton;
class QSortFilterProxyModel;
class QTreeView;

namespace strativo {

/// Lists the windows with number, name, type and U-value, and finds them by any of these.
class MoreWindows : public QDialog {
    Q_OBJECT

public:
    explicit MoreWindows(std::vector<WindowLine> windowLines, QWidget* parent = nullptr);

    /// The index of the selected line; -1 when there is none.
    int Selected() const;
    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Ui {
        QLineEdit* Filter;
        QTreeView* Windows;
        QPushButton* OKButton;
        QPushButton* CancelButton;
    };

    void BuildControls();
    void BuildList();
    void LayOut();
    void ConnectSignals();
    void Filter_Change(const QString& text);
    void SelectFirst();

    std::vector<WindowLine> lines;
    QSortFilterProxyModel* shown;
    Ui ui{};
};

/// Asks for one of the windows: its index, or -1 when the user chose none.
int ChooseWindow(const std::vector<WindowLine>& lines, QWidget* parent);

} // namespace strativo
