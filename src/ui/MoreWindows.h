#pragma once

#include <QDialog>
#include <QStringList>

class QLineEdit;
class QListView;
class QModelIndex;
class QPushButton;
class QSortFilterProxyModel;

namespace strativo {

/// Lists the windows that are too many for the Window menu.
class MoreWindows : public QDialog {
    Q_OBJECT

public:
    explicit MoreWindows(const QStringList& captions, QWidget* parent = nullptr);

    /// The index of the selected caption, or -1.
    int Selected() const;
    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Ui {
        QLineEdit* Filter;
        QListView* Windows;
        QPushButton* OKButton;
        QPushButton* CancelButton;
    };

    void BuildControls(const QStringList& captions);
    void LayOut();
    void ConnectSignals();
    void Filter_Change(const QString& text);
    void SelectFirst();

    QSortFilterProxyModel* shown;
    Ui ui{};
};

/// Lets the user choose a window; returns its index, or -1 if none was chosen.
int ChooseWindow(const QStringList& captions, QWidget* parent);

} // namespace strativo
