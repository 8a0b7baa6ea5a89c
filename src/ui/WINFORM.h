#pragma once

#include "ui/Program.h"

#include <QWidget>

#include <string>

class QLabel;
class QPushButton;

namespace strativo {

class PlainList;

/// The glass types window: the names of the one-dimensional glass types.
class WinForm : public QWidget {
    Q_OBJECT

public:
    explicit WinForm(Program& owner, QWidget* parent = nullptr);
    ~WinForm() override;

    /// Shows the glass types that the project has listed; a new listing leaves nothing selected.
    void ShowGlassTypes();

    QSize sizeHint() const override;

signals:
    void CloseRequested();

private:
    struct Ui {
        QLabel* WInlab;
        PlainList* WinList;
        QPushButton* Addbut;
        QPushButton* EditBut;
        QPushButton* DelBut;
        QPushButton* WFLoad;
        QPushButton* Closebut;
    };

    void BuildControls();
    void LayOut();
    void Describe();
    void SetTabOrder();
    void ConnectSignals();
    QPushButton* AddButton(const QString& objectName, const QString& caption);

    void FocusMoved(QWidget* before, QWidget* now);
    void Form_GotFocus();
    void Form_LostFocus();
    void WinList_Click();
    void Addbut_Click();
    void EditBut_Click();
    void DelBut_Click();
    void WFLoad_Click();

    void EnableForSelection(bool selected);
    void RefreshIfStale();
    void OpenEditor();
    std::string SelectedName() const;

    Program& program;
    Ui ui{};
    unsigned shownListing = 0; ///< number of the listing that is shown
};

} // namespace strativo
