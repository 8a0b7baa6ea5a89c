#pragma once

#include "edit/LayerDrag.h"
#include "ui/Program.h"

#include <QWidget>

class QButtonGroup;
class QKeyEvent;
class QLabel;
class QRadioButton;

namespace strativo {

class DragImage;
class MaterialList;

/// The Select Material dialog: the materials of one library, to be inserted, dragged or copied.
class UvalsDialog : public QWidget {
    Q_OBJECT

public:
    explicit UvalsDialog(Program& owner, QWidget* parent = nullptr);

    // The dialog has become the active child window, has ceased to be, or is about to be destroyed.
    void Form_Activate();
    void Form_Deactivate();
    void Form_Unload();

    /// Shows the library as it is now and marks its option, without running the option's handler.
    void Follow();
    QString Caption() const;

signals:
    /// A material was inserted into the current construction, or found no room there.
    void Inserted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Ui {
        QRadioButton* MatOption[2];
        QButtonGroup* MatOptions;
        MaterialList* UValueList;
        DragImage* Label2[visibleMaterialRows];
    };

    void Insert();
    void ShowOptions();
    void ShowMaterials();
    void TellCutNames(const std::vector<std::string>& lines);
    void BuildOptions();
    void BuildList();
    void BuildHeadings();
    void BuildDragImages();
    void Describe();
    void ConnectSignals();
    QLabel* AddLabel(const QString& objectName, const QString& text, QRect place);

    void Form_Load();
    void MatOption_Click(int index);
    void UValueList_DblClick();
    bool UValueList_KeyDown(const QKeyEvent& event);
    static bool UValueList_KeyPress(const QString& text);
    void UValueList_MouseMove(QPoint position);

    Program& program;
    Ui ui{};
    MaterialLibrary shownMaterials; ///< the materials that the list shows
};

} // namespace strativo
