#include "ui/WINPRO.h"

#include "edit/ConstructionEntry.h"
#include "edit/GlassCells.h"
#include "edit/InfoTexts.h"
#include "text/Format.h"
#include "ui/EntryField.h"
#include "ui/HistoryKeys.h"
#include "ui/KeyRepeat.h"
#include "ui/MainWindowPlace.h"
#include "ui/ProfileGraph.h"
#include "ui/ProfileSheet.h"
#include "ui/Text.h"

#include <QApplication>
#include <QButtonGroup>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include <optional>
#include <utility>

namespace strativo {

namespace {

std::optional<ProfileKey> ProfileKeyOf(int key) {
    switch (key) {
    case Qt::Key_PageUp:
        return ProfileKey::pageUp;
    case Qt::Key_PageDown:
        return ProfileKey::pageDown;
    case Qt::Key_Up:
        return ProfileKey::up;
    case Qt::Key_Down:
        return ProfileKey::down;
    case Qt::Key_Home:
        return ProfileKey::home;
    case Qt::Key_End:
        return ProfileKey::end;
    case Qt::Key_Left:
        return ProfileKey::left;
    case Qt::Key_Right:
        return ProfileKey::right;
    default:
        return std::nullopt;
    }
}

/// More than eleven cells ever need; a longer text is refused anyway.
constexpr int longestPaste = 10'000;

bool IsEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

Profile::Profile(Program& owner, QWidget* parent)
    : QDialog(parent), program(owner), profile(OpenProfile(owner.project)) {
    setObjectName(QStringLiteral("Profile"));
    setWindowTitle(tr("Glass Properties"));
    setWindowModality(Qt::WindowModal); // the help stays free
    RecordSource(program.project, ProgramWindow::glassProperties);
    BuildControls();
    BuildPropertyChoice();
    LayOut();
    FitOnScreen();
    Describe();
    PrepareKeys();
    ConnectSignals();
    Form_Load();
}

QPushButton* Profile::AddButton(const QString& objectName, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(objectName);
    // Enter in a field must not close the window.
    button->setAutoDefault(false);
    return button;
}

void Profile::BuildControls() {
    ui.GlassText = new EntryField(EntryField::Kind::name, QStringLiteral("GlassText"), this);
    ui.GlassName = PlainLabel(tr("Glass type &name"), this);
    ui.GlassName->setObjectName(QStringLiteral("GlassName"));
    ui.GlassName->setBuddy(ui.GlassText);
    ui.sheet = new ProfileSheet(this);
    ui.Graph = ui.sheet->Graph();
    ui.SelColumn = PlainLabel(QString(), this);
    ui.SelColumn->setObjectName(QStringLiteral("SelColumn"));
    ui.EditLevel = new EntryField(EntryField::Kind::number, QStringLiteral("EditLevel"), this);
    ui.EditLevel->setFixedWidth(fontMetrics().horizontalAdvance(tr("0.000")) * 2);
    ui.OkBut = AddButton(QStringLiteral("OkBut"), tr("OK"));
    ui.CancelBut = AddButton(QStringLiteral("CancelBut"), tr("Cancel"));
}

void Profile::BuildPropertyChoice() {
    // The label's access key focuses the choice without changing it.
    ui.propertyChoice = new QWidget(this);
    ui.propertyChoice->setFocusPolicy(Qt::ClickFocus);
    ui.Label1 = PlainLabel(tr("&Property"), this);
    ui.Label1->setObjectName(QStringLiteral("Label1"));
    ui.Label1->setBuddy(ui.propertyChoice);
    ui.GlassProps = new QButtonGroup(this);
    auto* row = new QHBoxLayout(ui.propertyChoice);
    row->setContentsMargins(0, 0, 0, 0);
    const QString captions[] = {tr("&Transmission"), tr("&Absorption")};
    for (int index = 0; index < 2; ++index) {
        auto* option = new QRadioButton(captions[index], ui.propertyChoice);
        option->setObjectName(QStringLiteral("GlassProp_%1").arg(index));
        ui.GlassProps->addButton(option, index);
        ui.GlassProp[index] = option;
        row->addWidget(option);
    }
}

void Profile::LayOut() {
    auto* rows = new QVBoxLayout(this);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->setSpacing(12);
    rows->setContentsMargins(14, 14, 14, 14);
    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(ui.GlassName);
    nameRow->addWidget(ui.GlassText);
    auto* valueRow = new QHBoxLayout;
    valueRow->addWidget(ui.Label1);
    valueRow->addWidget(ui.propertyChoice);
    valueRow->addStretch();
    valueRow->addWidget(ui.SelColumn);
    valueRow->addWidget(ui.EditLevel);
    QSizePolicy keepsPlace = ui.EditLevel->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    ui.EditLevel->setSizePolicy(keepsPlace);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    buttonRow->addWidget(ui.OkBut);
    buttonRow->addWidget(ui.CancelBut);
    rows->addLayout(nameRow);
    rows->addWidget(ui.sheet);
    rows->addLayout(valueRow);
    rows->addLayout(buttonRow);
}

/// On a small or magnified screen the buttons would lie below its edge, and nobody can resize this
/// window.
void Profile::FitOnScreen() {
    const QSize whole = layout()->totalSizeHint();
    const QWidget& onScreen = parentWidget() != nullptr ? *parentWidget()->window() : *this;
    if (const int tooHigh = whole.height() - FittingSize(whole, onScreen).height(); tooHigh > 0)
        ui.sheet->LowerBy(tooHigh);
}

void Profile::Describe() {
    ui.GlassText->setAccessibleName(tr("Glass type name"));
    ui.GlassText->setToolTip(tr("Name of the glass type, unlike that of any other"));
    ui.Graph->setToolTip(
        tr("Drag a point, or choose one with Left, Right, Home and End and change it by 0.01 with "
           "Up and Down, by 0.1 with Page Up and Page Down, or type its value. Ctrl+V takes eleven "
           "values from a spreadsheet, Ctrl+C copies them. The dashed line is the other property; "
           "in the shaded band both together would be more than 1"));
    ui.propertyChoice->setAccessibleName(tr("Property"));
    ui.GlassProp[0]->setToolTip(tr("Shows the transmission, as a fraction from 0 to 1"));
    ui.GlassProp[1]->setToolTip(tr("Shows the absorption, as a fraction from 0 to 1"));
    ui.EditLevel->setToolTip(
        tr("Value of the selected point, a fraction from 0 to 1 (Alt+V); Enter goes on to the next "
           "point"));
    ui.OkBut->setToolTip(tr("Stores name and values in the glass type"));
    ui.CancelBut->setToolTip(tr("Leaves the glass type as it was"));
}

std::array<QWidget*, 7> Profile::ControlsInTabOrder() const {
    return {ui.GlassText, ui.Graph, ui.GlassProp[0], ui.GlassProp[1],
            ui.EditLevel, ui.OkBut, ui.CancelBut};
}

void Profile::PrepareKeys() {
    QWidget* before = ui.GlassText;
    for (QWidget* control : ControlsInTabOrder()) {
        if (control != before)
            setTabOrder(before, control);
        before = control;
        control->installEventFilter(this);
    }
}

void Profile::ConnectSignals() {
    // Qt performs an access key's click a tenth of a second late, so keys typed after it would
    // still change the other property.
    connect(ui.GlassProps, &QButtonGroup::idPressed, this, [this](int index) {
        if (QApplication::mouseButtons() == Qt::NoButton)
            ui.GlassProp[index]->setChecked(true);
    });
    connect(ui.GlassProps, &QButtonGroup::idToggled, this, [this](int index, bool checked) {
        if (checked)
            GlassProp_Click(index);
    });
    connect(ui.Graph, &ProfileGraph::Pressed, this, &Profile::Graph_MouseDown);
    connect(ui.Graph, &ProfileGraph::Dragged, this, &Profile::Graph_MouseMove);
    connect(ui.Graph, &ProfileGraph::ValueGiven, this, [this](double value) {
        ++gesture;
        program.perform([&] { TypeValue(program.project, profile, FormatGeneral(value)); });
        ShowProfile();
    });
    connect(ui.EditLevel, &QLineEdit::textEdited, this, [this] {
        gesture += levelEdited ? 0 : 1;
        levelEdited = true;
    });
    connect(ui.EditLevel, &EntryField::Entered, this, [this] { enterPressed = true; });
    connect(ui.EditLevel, &EntryField::Left, this, &Profile::EditLevel_LostFocus);
    connect(ui.GlassText, &EntryField::Entered, ui.Graph,
            [this] { ui.Graph->setFocus(Qt::OtherFocusReason); });
    connect(ui.EditLevel, &EntryField::Escaped, this, &Profile::reject);
    connect(ui.GlassText, &EntryField::Escaped, this, &Profile::reject);
    // Its label shows the point's name and so cannot show an access key.
    auto* valueKey = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_V), this);
    connect(valueKey, &QShortcut::activated, this, &Profile::GoToLevel);
    AddHistoryKeys(
        this, [this] { MoveInHistory(&ProfileHistory::Undo); },
        [this] { MoveInHistory(&ProfileHistory::Redo); });
    connect(ui.OkBut, &QPushButton::clicked, this, &Profile::OkBut_Click);
    connect(ui.CancelBut, &QPushButton::clicked, this, &Profile::CancelBut_Click);
}

void Profile::Form_Load() {
    ui.GlassText->setText(ToText(profile.name));
    ui.GlassProp[0]->setChecked(true);
    ShowProfile();
    if (profile.name.empty())
        ui.GlassText->setFocus();
    else
        ui.Graph->setFocus();
}

bool Profile::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress)
        return Form_KeyDown(watched, *static_cast<QKeyEvent*>(event));
    if (watched == ui.EditLevel && event->type() == QEvent::KeyRelease)
        EditLevel_KeyUp(*static_cast<QKeyEvent*>(event));
    else if (watched == ui.EditLevel && event->type() == QEvent::FocusOut)
        enterPressed = false;
    return QDialog::eventFilter(watched, event);
}

bool Profile::Form_KeyDown(QObject* control, const QKeyEvent& event) {
    // In fast typing, the next key is pressed before Enter is released; Enter must take effect
    // first.
    if (!IsRepeat(event))
        FinishEnter();
    const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    auto* button = qobject_cast<QPushButton*>(control);
    if (plain && IsEnter(event.key()) && button != nullptr && !IsRepeat(event)) {
        button->click();
        return true;
    }
    if (control == ui.Graph && GraphKey(event))
        return true;
    const std::optional<ProfileKey> key = ProfileKeyOf(event.key());
    if (!key || !plain)
        return false;
    ui.Graph->EndDrag();
    TakeTypedValue();
    gesture += IsRepeat(event) ? 0 : 1;
    Change([&] { PressProfileKey(program.project, profile, *key); });
    ShowProfile();
    return control != ui.GlassText; // in that field the keys move the caret as well
}

/// Handles the keys that only work on the graph.
bool Profile::GraphKey(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy)) {
        CopyCells();
        return true;
    }
    const bool pastes = event.matches(QKeySequence::Paste);
    const bool types = StartsThicknessEntry(ToBytes(event.text()))
                       && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (pastes && !IsRepeat(event))
        PasteFromClipboard();
    else if (types && !IsRepeat(event))
        TypeIntoLevel(event.text());
    return pastes || types;
}

void Profile::GoToLevel() {
    ui.Graph->EndDrag();
    if (program.project.selectedProfileColumn == 0)
        program.perform([&] { PressProfileKey(program.project, profile, ProfileKey::home); });
    ShowProfile();
    ui.EditLevel->setFocus(Qt::ShortcutFocusReason);
}

void Profile::TypeIntoLevel(const QString& text) {
    GoToLevel();
    ui.EditLevel->setText(text);
    ++gesture;
    levelEdited = true;
}

void Profile::CopyCells() const {
    QApplication::clipboard()->setText(ToText(CellsOf(profile.Shown())));
}

void Profile::PasteFromClipboard() {
    const std::string cells = ToBytes(QApplication::clipboard()->text().left(longestPaste));
    ++gesture;
    Change([&] { PasteCells(program.project, profile, cells, program.prompts); });
    ShowProfile();
}

void Profile::GlassProp_Click(int index) {
    profile.shown = index == 0 ? GlassProperty::transmission : GlassProperty::absorption;
    ui.propertyChoice->setFocusProxy(ui.GlassProp[index]);
    ShowProfile();
}

void Profile::Graph_MouseDown(double x, double y) {
    ++gesture;
    program.perform([&] { PressGraph(program.project, profile, ui.Graph->Geometry(), x, y); });
    ShowProfile();
}

void Profile::Graph_MouseMove(double y) {
    Change([&] { DragGraph(program.project, profile, ui.Graph->Geometry(), y); });
    ShowProfile();
}

void Profile::EditLevel_KeyUp(const QKeyEvent& event) {
    TakeTypedValue();
    ShowGraph();
    if (IsEnter(event.key()) && !event.isAutoRepeat())
        FinishEnter();
}

/// Takes effect only if the field also saw Enter pressed: the release alone may belong to a closing
/// box.
void Profile::FinishEnter() {
    if (!std::exchange(enterPressed, false))
        return;
    TakeTypedValue();
    SelectNextColumn(program.project);
    ShowProfile();
}

void Profile::EditLevel_LostFocus() {
    TakeTypedValue();
    ShowProfile();
}

void Profile::TakeTypedValue() {
    // The field shows a rounded value, so text that nobody edited must not be stored.
    if (levelEdited)
        Change([this] { TypeValue(program.project, profile, ToBytes(ui.EditLevel->text())); });
}

void Profile::Change(const std::function<void()>& action) {
    history.Begin(program.project, profile);
    program.perform(action);
    history.End(profile, gesture);
}

void Profile::MoveInHistory(bool (ProfileHistory::*direction)(Project&, GlassProfile&)) {
    ui.Graph->EndDrag();
    program.perform([&] { (history.*direction)(program.project, profile); });
    ui.GlassProp[profile.shown == GlassProperty::transmission ? 0 : 1]->setChecked(true);
    ShowProfile();
}

void Profile::ShowGraph() {
    const QString valueName =
        profile.shown == GlassProperty::transmission ? tr("Transmission") : tr("Absorption");
    ui.sheet->Show(profile.Shown(), profile.Other(), program.project.selectedProfileColumn,
                   valueName);
    ui.Graph->setAccessibleDescription(ToText(OutsideText(profile)));
}

void Profile::ShowProfile() {
    ShowGraph();
    const bool selected = program.project.selectedProfileColumn != 0;
    const QString column = ToText(ColumnText(program.project, profile));
    SetPlainText(*ui.SelColumn, column);
    ui.EditLevel->setAccessibleName(column);
    const QString level = ToText(LevelText(program.project, profile));
    ui.Graph->setAccessibleName(selected ? tr("Profile graph: %1, %2").arg(column, level)
                                         : tr("Profile graph"));
    if (!selected && ui.EditLevel->hasFocus())
        ui.Graph->setFocus();
    ui.EditLevel->setVisible(selected);
    ui.EditLevel->setText(level);
    levelEdited = false;
    if (ui.EditLevel->hasFocus())
        ui.EditLevel->selectAll();
}

void Profile::OkBut_Click() {
    TakeTypedValue();
    bool accepted = false;
    program.perform([&] {
        accepted =
            AcceptProfile(program.project, profile, ToBytes(ui.GlassText->text()), program.prompts);
    });
    if (accepted) {
        accept();
        return;
    }
    ui.GlassText->setFocus();
    ui.GlassText->selectAll();
}

void Profile::CancelBut_Click() {
    program.perform([this] { CancelProfile(program.project); });
    reject();
}

void Profile::done(int result) {
    // When the editor closes, the field loses the focus; what it holds must no longer be stored.
    levelEdited = false;
    QDialog::done(result);
}

} // namespace strativo
