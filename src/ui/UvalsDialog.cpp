#include "ui/UvalsDialog.h"

#include "edit/InfoTexts.h"
#include "edit/LayerClipboard.h"
#include "edit/LayerDrag.h"
#include "edit/MaterialList.h"
#include "ui/DragImage.h"
#include "ui/DragPayload.h"
#include "ui/KeyRepeat.h"
#include "ui/ListLabels.h"
#include "ui/MaterialList.h"
#include "ui/Text.h"
#include "ui/Tips.h"
#include "ui/Twips.h"

#include <QButtonGroup>
#include <QDrag>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QRadioButton>

namespace strativo {

namespace {

constexpr int margin = 10;
constexpr int optionRow = 6;
constexpr int headingRow = 32;
constexpr int headingHeight = 30; // two lines
constexpr int listRow = 64;
constexpr int lineLength = 62;

constexpr char16_t controlC = 3; // the text of a Ctrl+C key press

bool IsEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Whether the key copies the material: Enter with any modifiers, C or Insert with Ctrl alone.
bool TakesMaterial(const QKeyEvent& event) {
    const bool ctrlOnly = (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
    return IsEnter(event.key())
           || (ctrlOnly && (event.key() == Qt::Key_C || event.key() == Qt::Key_Insert));
}

} // namespace

UvalsDialog::UvalsDialog(Program& owner, QWidget* parent) : QWidget(parent), program(owner) {
    setObjectName(QStringLiteral("UvalsDialog"));
    BuildOptions();
    BuildList();
    BuildHeadings();
    BuildDragImages();
    Describe();
    ConnectSignals();
    setFocusProxy(ui.UValueList);
    setFixedSize(ui.UValueList->width() + 2 * margin, listRow + ui.UValueList->height() + margin);
    Follow();
    Form_Load();
}

void UvalsDialog::Form_Load() {
    RecordSource(program.project, ProgramWindow::selectMaterial);
}

void UvalsDialog::Form_Activate() {
    program.project.dialogActive = true;
    program.project.dialogHidden = false;
}

void UvalsDialog::Form_Deactivate() {
    program.project.dialogActive = false;
}

void UvalsDialog::Form_Unload() {
    program.project.dialogActive = false;
}

QLabel* UvalsDialog::AddLabel(const QString& objectName, const QString& text, QRect place) {
    QLabel* label = PlainLabel(text, this);
    label->setObjectName(objectName);
    label->setGeometry(place);
    return label;
}

void UvalsDialog::BuildOptions() {
    ui.MatOptions = new QButtonGroup(this);
    const QString captions[] = {tr("&Standard File"), tr("&User File")};
    for (int index = 0; index < 2; ++index) {
        auto* option = new QRadioButton(captions[index], this);
        option->setObjectName(QStringLiteral("MatOption_%1").arg(index));
        option->setGeometry(margin + index * 130, optionRow, 120, 22);
        ui.MatOptions->addButton(option, index);
        ui.MatOption[index] = option;
    }
}

void UvalsDialog::BuildList() {
    ui.UValueList = new MaterialList(this);
    ui.UValueList->setGeometry(margin, listRow, ui.UValueList->WidthFor(lineLength),
                               FromTwips(MaterialList::listHeight, *this));
}

void UvalsDialog::BuildHeadings() {
    // The number columns end at characters 41, 51 and 61 of a line.
    const double character = QFontMetricsF(ColumnFont()).horizontalAdvance(QLatin1Char('0'));
    const auto column = [&](int characters) {
        return margin + 3 + static_cast<int>(character * characters);
    };
    QLabel* name = AddLabel(QStringLiteral("Label4"), tr(" &Name   of     component"),
                            QRect(column(0), headingRow, column(29) - column(0), headingHeight));
    name->setBuddy(ui.UValueList);
    name->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    // The last heading is wider than its column and extends over the scroll bar.
    const struct {
        QString text;
        int from, to;
    } headings[] = {{tr("  Conductivity    W/m/°C"), column(29), column(41)},
                    {tr("    Density    Kg/m3"), column(42), column(51)},
                    {tr(" Specfic Heat   J/Kg/°C"), column(52), column(61) + 24}};
    for (int index = 0; index < 3; ++index) {
        const auto& heading = headings[index];
        QLabel* label =
            AddLabel(QStringLiteral("Label1_%1").arg(index), heading.text,
                     QRect(heading.from, headingRow, heading.to - heading.from, headingHeight));
        label->setAlignment((index < 2 ? Qt::AlignRight : Qt::AlignHCenter) | Qt::AlignBottom);
        BreakBeforeUnit(*label);
    }
}

void UvalsDialog::BuildDragImages() {
    for (int row = 0; row < visibleMaterialRows; ++row)
        ui.Label2[row] = new DragImage(QStringLiteral("Label2_%1").arg(row),
                                       tr(" &Name   of     component"), this);
}

void UvalsDialog::Describe() {
    ui.MatOption[0]->setToolTip(tr("Shows the materials of the standard library"));
    ui.MatOption[1]->setToolTip(tr("Shows the materials of the user library"));
    ui.UValueList->setAccessibleName(
        tr("Materials: name, conductivity in W/m C, density in kg/m3, specific heat in J/kg C"));
    ui.UValueList->setToolTip(
        tr("Conductivity in W/m/°C, density in kg/m3, specific heat in J/kg/°C. Double click or "
           "Enter inserts the material before the current layer; drag it onto a layer list"));
}

void UvalsDialog::ConnectSignals() {
    connect(ui.MatOptions, &QButtonGroup::idClicked, this, &UvalsDialog::MatOption_Click);
    connect(ui.UValueList, &MaterialList::LineDoubleClicked, this,
            &UvalsDialog::UValueList_DblClick);
    ui.UValueList->installEventFilter(this);
    connect(ui.UValueList, &MaterialList::DragWanted, this,
            [this](int, QPoint position, bool) { UValueList_MouseMove(position); });
    connect(ui.UValueList, &QListWidget::itemSelectionChanged, this,
            [this] { program.project.selectedMaterial = ui.UValueList->SelectedLine() + 1; });
}

void UvalsDialog::Follow() {
    ShowOptions();
    ShowMaterials();
    setWindowTitle(Caption());
}

void UvalsDialog::ShowOptions() {
    const Project& project = program.project;
    ui.MatOption[userLibraryNumber - 1]->setEnabled(project.userLoaded);
    ui.MatOption[project.shownLibrary - 1]->setChecked(true);
}

void UvalsDialog::ShowMaterials() {
    const Project& project = program.project;
    const MaterialLibrary& library = Library(project, project.shownLibrary);
    if (library != shownMaterials) {
        shownMaterials = library;
        const std::vector<std::string> lines = MaterialLines(project);
        ui.UValueList->SetLines(lines);
        TellCutNames(lines);
    }
    ui.UValueList->SelectLine(project.selectedMaterial - 1);
}

/// The lines show only the first characters of long names.
void UvalsDialog::TellCutNames(const std::vector<std::string>& lines) {
    for (std::size_t line = 0; line < lines.size(); ++line) {
        const int row = static_cast<int>(line);
        const std::string& name = shownMaterials[row + 1].name;
        const bool isWhole = lines[line].compare(0, name.size(), name) == 0;
        const QVariant told = isWhole ? QVariant() : Elided(ToText(name));
        if (QListWidgetItem& item = *ui.UValueList->item(row); item.data(toldRole) != told)
            item.setData(toldRole, told);
    }
}

QString UvalsDialog::Caption() const {
    return Elided(PathText(MaterialListCaption(program.project)));
}

void UvalsDialog::MatOption_Click(int index) {
    program.perform([&] { ShowLibrary(program.project, index + 1); });
    ui.UValueList->setFocus(); // what is typed next is about a material
}

void UvalsDialog::UValueList_DblClick() {
    Insert();
}

void UvalsDialog::Insert() {
    program.perform([this] { InsertMaterial(program.project, program.prompts); });
    if (program.project.selectedMaterial > 0)
        emit Inserted();
}

bool UvalsDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != ui.UValueList || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool taken = UValueList_KeyDown(key);
    return UValueList_KeyPress(key.text()) || taken;
}

/// Handles the keys that copy a material; false for a key that belongs to the list.
bool UvalsDialog::UValueList_KeyDown(const QKeyEvent& event) {
    if (!TakesMaterial(event))
        return false;
    // Enter held down must not go on inserting.
    if (IsRepeat(event))
        return true;
    if (IsEnter(event.key()))
        Insert();
    else
        program.perform([this] { TakeMaterial(program.project); });
    return true;
}

/// Whether to keep this text from the list, which would beep or search for it.
bool UvalsDialog::UValueList_KeyPress(const QString& text) {
    return text == QChar(controlC);
}

void UvalsDialog::UValueList_MouseMove(QPoint position) {
    bool taken = false;
    program.perform([&] {
        TakeMaterial(program.project);
        taken = true;
    });
    if (!taken)
        return;
    const int row = VisibleRow(ToTwips(position.y(), *this), MaterialList::listHeight / 4.0,
                               visibleMaterialRows);
    QDrag drag(ui.UValueList);
    drag.setMimeData(MakeDragPayload(DragKind::material));
    drag.setPixmap(ui.Label2[row]->Draw({ToText(program.project.clipboard[1].name)}));
    drag.exec(Qt::CopyAction);
}

} // namespace strativo
