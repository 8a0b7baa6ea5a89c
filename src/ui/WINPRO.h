#pragma once

#include "edit/ProfileHistory.h"
#include "ui/Program.h"

#include <QDialog>

#include <array>

class QButtonGroup;
class QKeyEvent;
class QLabel;
class QPushButton;
class QRadioButton;

namespace strativo {

class EntryField;
class ProfileGraph;
class ProfileSheet;

/// The glass properties editor. It works on a copy of the project's current glass type and writes
/// it back on OK.
class Profile : public QDialog {
    Q_OBJECT

public:
    explicit Profile(Program& owner, QWidget* parent = nullptr);

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Ui {
        QLabel* GlassName;
        EntryField* GlassText;
        ProfileSheet* sheet;
        ProfileGraph* Graph;
        QLabel* Label1;
        QWidget* propertyChoice;
        QButtonGroup* GlassProps;
        QRadioButton* GlassProp[2];
        QLabel* SelColumn;
        EntryField* EditLevel;
        QPushButton* OkBut;
        QPushButton* CancelBut;
    };

    void BuildControls();
    void BuildPropertyChoice();
    void LayOut();
    void FitOnScreen();
    void Describe();
    void PrepareKeys();
    std::array<QWidget*, 7> ControlsInTabOrder() const;
    void ConnectSignals();
    void Form_Load();

    bool Form_KeyDown(QObject* control, const QKeyEvent& event);
    void GlassProp_Click(int index);
    void Graph_MouseDown(double x, double y);
    void Graph_MouseMove(double y);
    void EditLevel_KeyUp(const QKeyEvent& event);
    void EditLevel_LostFocus();
    void FinishEnter();
    void OkBut_Click();
    void CancelBut_Click();

    bool GraphKey(const QKeyEvent& event);
    void TypeIntoLevel(const QString& text);
    void GoToLevel();
    void CopyCells() const;
    void PasteFromClipboard();
    void TakeTypedValue();
    void Change(const std::function<void()>& action);
    void MoveInHistory(bool (ProfileHistory::*direction)(Project&, GlassProfile&));
    void ShowGraph();
    void ShowProfile();
    QPushButton* AddButton(const QString& objectName, const QString& caption);

    Program& program;
    GlassProfile profile;
    Ui ui{};
    ProfileHistory history;
    int gesture = 0;           ///< counts what the user did, as far as it may change values
    bool levelEdited = false;  ///< edited by the user since the program last filled the field
    bool enterPressed = false; ///< Enter was pressed in the value field and not yet released
};

} // namespace strativo
