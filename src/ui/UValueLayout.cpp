#include "edit/LayerDrag.h"
#include "ui/ChildWindow.h"
#include "ui/DragImage.h"
#include "ui/DropLabel.h"
#include "ui/EntryField.h"
#include "ui/LayerList.h"
#include "ui/ListLabels.h"
#include "ui/Text.h"
#include "ui/Twips.h"
#include "ui/UValue.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

// Places of the controls in a construction window, in logical pixels from its top left corner. The
// window has a fixed size, and the headings are aligned with the columns of the list.

namespace strativo {

namespace {

constexpr double windowWidth = 7215;  // twips, frame included
constexpr double windowHeight = 5350; // twips, frame included
constexpr int margin = 10;
constexpr int fieldHeight = 22;
constexpr int fieldColumn = 128;
constexpr int dropLabelWidth = 40;
constexpr int dropLabelHeight = 22; // large enough to hit while dragging

constexpr int nameRow = 8;
constexpr int typeRow = 36;
constexpr int headingRow = 64;
constexpr int headingHeight = 28;
constexpr int listRow = 94;

} // namespace

QSize UValue::FixedSize(const QWidget& screenWidget) {
    const QSize frame = ChildWindow::SizeAround(QSize(0, 0));
    return QSize(FromTwips(windowWidth, screenWidget), FromTwips(windowHeight, screenWidget))
           - frame;
}

QLabel* UValue::AddLabel(const QString& objectName, const QString& text, QRect place,
                         QWidget* buddy) {
    QLabel* label = PlainLabel(text, this);
    label->setObjectName(objectName);
    label->setGeometry(place);
    label->setBuddy(buddy);
    return label;
}

void UValue::BuildNameRows() {
    ui.NameText = new EntryField(EntryField::Kind::name, QStringLiteral("NameText"), this);
    ui.NameText->setGeometry(fieldColumn, nameRow, width() - fieldColumn - margin, fieldHeight);
    AddLabel(QStringLiteral("NameLabel"), tr("&Construction Name"),
             QRect(margin, nameRow, fieldColumn - margin, fieldHeight), ui.NameText);
    ui.TypeCombo = new QComboBox(this);
    ui.TypeCombo->setObjectName(QStringLiteral("TypeCombo"));
    ui.TypeCombo->addItems({tr("Opaque"), tr("Transparent")});
    ui.TypeCombo->setGeometry(fieldColumn, typeRow, 130, fieldHeight);
    AddLabel(QStringLiteral("TypeLabel"), tr("T&ype"),
             QRect(margin, typeRow, fieldColumn - margin, fieldHeight), ui.TypeCombo);
    AddLabel(QStringLiteral("IndexLabel"), tr("Construction Index :"),
             QRect(width() - margin - 160, typeRow, 112, fieldHeight));
    ui.IndexText = AddLabel(QStringLiteral("IndexText"), QString(),
                            QRect(width() - margin - 44, typeRow, 44, fieldHeight));
}

void UValue::BuildList() {
    ui.Construction = new LayerList(this);
    ui.Construction->setGeometry(margin, listRow, width() - 2 * margin,
                                 FromTwips(LayerList::listHeight, *this));
    const auto labels = findChildren<QLabel*>(QStringLiteral("Draglabel_0"));
    labels.front()->setBuddy(ui.Construction);
}

void UValue::BuildHeadings() {
    // The columns end at characters 37, 45 and 54 of a line.
    const double character = QFontMetricsF(ColumnFont()).horizontalAdvance(QLatin1Char('0'));
    const auto column = [&](int characters) {
        return margin + 3 + static_cast<int>(character * characters);
    };
    const int firstLabel = width() - margin - dropLabelWidth;
    const struct {
        const char* objectName;
        QString text;
        int from, to;
    } headings[] = {{"Draglabel_0", tr("&Name of Component "), column(0), column(32)},
                    {"Draglabel_1", tr("  Resistance      m2C/W"), column(34), column(45)},
                    {"Draglabel_2", tr("Material Thickness  mm"), column(45), firstLabel - 4}};
    for (const auto& heading : headings) {
        QLabel* label =
            AddLabel(QLatin1String(heading.objectName), heading.text,
                     QRect(heading.from, headingRow, heading.to - heading.from, headingHeight));
        const bool hasUnit = heading.from != column(0);
        label->setAlignment((hasUnit ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignBottom);
        if (hasUnit)
            BreakBeforeUnit(*label);
    }
}

void UValue::BuildEntryRows() {
    const int below = listRow + FromTwips(LayerList::listHeight, *this) + 4;
    const auto dropLabel = [&](const char* objectName, const QString& text, int x, int y) {
        auto* label = new DropLabel(this);
        SetPlainText(*label, text);
        label->setObjectName(QLatin1String(objectName));
        label->setAlignment(Qt::AlignCenter);
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setGeometry(x, y, dropLabelWidth, dropLabelHeight);
        label->setAcceptDrops(true);
        return label;
    };
    ui.First =
        dropLabel("Draglabel_3", tr("First"), width() - margin - dropLabelWidth, headingRow + 6);
    ui.Last = dropLabel("Draglabel_4", tr("Last"), width() - margin - dropLabelWidth, below - 2);
    ui.ConName = AddLabel(QStringLiteral("ConName"), QString(),
                          QRect(margin, below, width() - 2 * margin - 50, 18));
    const int row = below + 24;
    ui.EditThick = new EntryField(EntryField::Kind::number, QStringLiteral("EditThick"), this);
    ui.EditThick->setGeometry(76, row, 64, fieldHeight);
    ui.ThicknessLabel = AddLabel(QStringLiteral("ThicknessLabel"), tr("&Thickness"),
                                 QRect(margin, row, 64, fieldHeight), ui.EditThick);
    ui.AbsorpText = new EntryField(EntryField::Kind::number, QStringLiteral("AbsorpText"), this);
    ui.AbsorpText->setGeometry(232, row, 64, fieldHeight);
    ui.AbsorptionLabel = AddLabel(QStringLiteral("AbsorptionLabel"), tr("&Absorption"),
                                  QRect(160, row, 70, fieldHeight), ui.AbsorpText);
    ui.VWConComments = new QPushButton(tr("Comments"), this);
    ui.VWConComments->setObjectName(QStringLiteral("VWConComments"));
    ui.VWConComments->setAutoDefault(false);
    ui.VWConComments->setGeometry(width() - margin - 92, row - 1, 92, fieldHeight + 2);
    const int resultRow = row + 28;
    AddLabel(QStringLiteral("Label6"), tr("Indicative Uvalue W/Cm2"),
             QRect(margin, resultRow, 150, 20));
    ui.Result = AddLabel(QStringLiteral("Result"), QString(), QRect(164, resultRow, 90, 20));
    QFont bold = ui.Result->font();
    bold.setBold(true);
    ui.Result->setFont(bold);
}

void UValue::BuildDragImages() {
    for (int row = 0; row < visibleLayerRows; ++row)
        ui.Label2[row] = new DragImage(QStringLiteral("Label2_%1").arg(row),
                                       tr("  Conductivity                    W/m/°C"), this);
}

void UValue::Describe() {
    ui.NameText->setAccessibleName(tr("Construction name"));
    ui.TypeCombo->setAccessibleName(tr("Construction type"));
    ui.Construction->setAccessibleName(tr("Layers: name, resistance in m2C/W, thickness in mm"));
    ui.EditThick->setAccessibleName(tr("Thickness of the current layer"));
    ui.AbsorpText->setAccessibleName(tr("Solar absorption of the current layer"));
    ui.NameText->setToolTip(tr("Name of the construction; Enter stores it"));
    ui.TypeCombo->setToolTip(tr("A transparent construction has a solar absorption in each layer"));
    ui.Construction->setToolTip(tr("Layers: resistance in m2C/W, thickness in mm"));
    ui.EditThick->setToolTip(tr("Thickness of the current layer in mm (a resistance in m2C/W for "
                                "a type 3 cavity); Enter stores it"));
    ui.AbsorpText->setToolTip(tr("Solar absorption of the current layer; Enter stores it"));
    ui.Result->setToolTip(tr("U-value in W/m2C, indicative only: steady state, with fixed surface "
                             "resistances of 0.06 and 0.12 m2C/W and a fixed resistance for each "
                             "type of cavity"));
    ui.First->setToolTip(tr("Drop here to insert before the first layer"));
    ui.Last->setToolTip(tr("Drop here to append after the last layer"));
    ui.VWConComments->setToolTip(tr("Shows the comments kept from the construction file"));
}

void UValue::SetTabOrder() {
    QWidget* const order[] = {ui.NameText,  ui.TypeCombo,  ui.Construction,
                              ui.EditThick, ui.AbsorpText, ui.VWConComments};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    for (QWidget* control : order)
        control->installEventFilter(this);
}

} // namespace strativo
