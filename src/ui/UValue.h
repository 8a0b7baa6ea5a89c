#pragma once

#include "edit/LayerDrag.h"
#include "ui/DragPayload.h"
#include "ui/Program.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace strativo {

class DragImage;
class DropLabel;
class EntryField;
class LayerList;

/// The window of one construction. It stores only the number and reads everything else from the
/// project. For a number that is not in use it is an empty, inactive window.
class UValue : public QWidget {
    Q_OBJECT

public:
    UValue(int constructionNumber, Program& owner, QWidget* parent = nullptr);

    /// The fixed size of the window without its frame, in logical pixels.
    static QSize FixedSize(const QWidget& screenWidget);

    /// Shows the construction as now stored, if that differs from what is shown.
    void Follow();
    /// Shows name, number, type, layers and U-value.
    void ShowConstruction();
    void RefreshLayerList();
    /// Whether there is no construction with the window's number.
    bool IsEmpty() const;
    /// Moves the focus to the layer list.
    void FocusList();

signals:
    /// The user asked for the Edit menu's items on the layer list.
    void ContextMenuWanted(QPoint globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct Ui {
        EntryField* NameText;
        QLabel* IndexText;
        QComboBox* TypeCombo;
        DropLabel* First;
        DropLabel* Last;
        LayerList* Construction;
        QLabel* ConName;
        QLabel* ThicknessLabel;
        EntryField* EditThick;
        QLabel* AbsorptionLabel;
        EntryField* AbsorpText;
        QPushButton* VWConComments;
        QLabel* Result;
        DragImage* Label2[visibleLayerRows];
    };

    void BuildNameRows();
    void BuildHeadings();
    void BuildList();
    void BuildEntryRows();
    void BuildDragImages();
    void Describe();
    void SetTabOrder();
    void ConnectSignals();
    QLabel* AddLabel(const QString& objectName, const QString& text, QRect place,
                     QWidget* buddy = nullptr);

    bool WindowKey(QKeyEvent* event);
    bool CommandKey(const QKeyEvent& event);

    void NameText_KeyPress();
    void NameText_LostFocus();
    void TypeCombo_Click(int index);
    void EditThick_KeyPress();
    void EditThick_LostFocus();
    void RestoreThickness();
    void AbsorpText_KeyPress();
    void AbsorpText_LostFocus();
    void Construction_Click(int line);
    void Construction_MouseMove(int line, QPoint position, bool ctrlHeld);
    void Construction_DragDrop(DragKind kind, int row);
    void VWConComments_Click();
    void ShowUValue(const std::string& text);
    void ShowAbsorption(bool shown);
    Construction& Record();

    int number;
    Program& program;
    Ui ui{};
    Construction shownRecord; ///< the construction as it was last shown
};

} // namespace strativo
