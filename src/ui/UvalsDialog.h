#pragma once

#include "edit/LayerDrag.h"
#include "ui/Program.h"

#include <QWidget>

class QButtonGroup;
class QLabel;
class QRadioButton;

namespace strativo {

class MaterialList;

/// The Select Material dialog: the materials of one library, to be inserted, dragged or copied.
class UvalsDialog : public QWidget {
    Q_OBJECT

public:
    explicit UvalsDialog(Program& owner, QWidget* parent = nullptr);

    /// Lists the materials of the shown library anew; nothing is selected afterwards.
    void RefreshMaterialList();
    void EnableMatOption(int index, bool enabled);
    /// Marks an option without running its handler.
    void SelectMatOption(int index);
    QString Caption() const;

private:
    struct Ui {
        QRadioButton* MatOption[2];
        QButtonGroup* MatOptions;
        MaterialList* UValueList;
        QLabel* Label2[visibleMaterialRows];
    };

    void BuildOptions();
    void BuildList();
    void BuildHeadings();
    void BuildDragImages();
    void Describe();
    void ConnectSignals();
    QLabel* AddLabel(const QString& objectName, const QString& text, QRect place);

    void MatOption_Click(int index);
    void UValueList_DblClick();
    void UValueList_KeyDown(int key);
    void UValueList_MouseMove(QPoint position);

    Program& program;
    Ui ui{};
};

} // namespace strativo
