#include "ui/WINFORM.h"

#include "edit/GlassTypes.h"
#include "edit/InfoTexts.h"
#include "files/GlassImport.h"
#include "ui/PlainList.h"
#include "ui/Text.h"
#include "ui/WINPRO.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

namespace strativo {

WinForm::WinForm(Program& owner, QWidget* parent) : QWidget(parent), program(owner) {
    setObjectName(QStringLiteral("WinForm"));
    setWindowTitle(tr("GlassTypes"));
    RecordSource(program.project, ProgramWindow::glassTypes);
    BuildControls();
    LayOut();
    Describe();
    SetTabOrder();
    ConnectSignals();
    setFocusProxy(ui.WinList);
    RefreshGlassTypeList(program.project);
    ShowGlassTypes();
}

WinForm::~WinForm() {
    // The focus changes once more while the controls are destroyed.
    disconnect(qApp, nullptr, this, nullptr);
}

QSize WinForm::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.averageCharWidth() * 62, metrics.height() * 19};
}

QPushButton* WinForm::AddButton(const QString& objectName, const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(objectName);
    return button;
}

void WinForm::BuildControls() {
    ui.WinList = new PlainList(this);
    ui.WinList->setObjectName(QStringLiteral("WinList"));
    ui.WinList->setUniformItemSizes(true);
    ui.WInlab = PlainLabel(tr("&Glass type"), this);
    ui.WInlab->setObjectName(QStringLiteral("WInlab"));
    ui.WInlab->setBuddy(ui.WinList);
    ui.Addbut = AddButton(QStringLiteral("Addbut"), tr("&Add"));
    ui.EditBut = AddButton(QStringLiteral("EditBut"), tr("&Edit"));
    ui.DelBut = AddButton(QStringLiteral("DelBut"), tr("&Delete"));
    ui.WFLoad = AddButton(QStringLiteral("WFLoad"), tr("Load"));
    ui.Closebut = AddButton(QStringLiteral("Closebut"), tr("&Close"));
}

void WinForm::LayOut() {
    auto* columns = new QGridLayout(this);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(6);
    for (QPushButton* button : {ui.Addbut, ui.EditBut, ui.DelBut, ui.WFLoad})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(ui.Closebut);
    columns->setHorizontalSpacing(10);
    columns->setVerticalSpacing(4);
    columns->addWidget(ui.WInlab, 0, 0);
    columns->addWidget(ui.WinList, 1, 0);
    columns->addLayout(buttons, 1, 1);
    columns->setColumnStretch(0, 1);
}

void WinForm::Describe() {
    ui.WinList->setAccessibleName(tr("Glass types"));
    ui.WinList->setToolTip(tr("Glass types of the construction file; double click edits one"));
    ui.Addbut->setToolTip(tr("Adds a glass type and edits it"));
    ui.EditBut->setToolTip(tr("Edits the selected glass type"));
    ui.DelBut->setToolTip(tr("Deletes the selected glass type"));
    ui.WFLoad->setToolTip(tr("Imports the glass types of another construction file"));
    ui.Closebut->setToolTip(tr("Closes the window"));
}

void WinForm::SetTabOrder() {
    QWidget* before = ui.WinList;
    for (QPushButton* button : {ui.Addbut, ui.EditBut, ui.DelBut, ui.WFLoad, ui.Closebut}) {
        setTabOrder(before, button);
        before = button;
    }
}

void WinForm::ConnectSignals() {
    connect(qApp, &QApplication::focusChanged, this, &WinForm::FocusMoved);
    connect(ui.WinList, &QListWidget::itemSelectionChanged, this, &WinForm::WinList_Click);
    connect(ui.WinList, &QListWidget::itemDoubleClicked, this, &WinForm::EditBut_Click);
    connect(ui.Addbut, &QPushButton::clicked, this, &WinForm::Addbut_Click);
    connect(ui.EditBut, &QPushButton::clicked, this, &WinForm::EditBut_Click);
    connect(ui.DelBut, &QPushButton::clicked, this, &WinForm::DelBut_Click);
    connect(ui.WFLoad, &QPushButton::clicked, this, &WinForm::WFLoad_Click);
    connect(ui.Closebut, &QPushButton::clicked, this, &WinForm::CloseRequested);
}

void WinForm::ShowGlassTypes() {
    const GlassTypeList& types = program.project.glassTypeList;
    if (types.listings == shownListing)
        return;
    shownListing = types.listings;
    QStringList lines;
    for (const std::string& name : types.names)
        lines << Elided(ToText(name));
    const QSignalBlocker silent(ui.WinList);
    ui.WinList->clear();
    ui.WinList->addItems(lines);
    WinList_Click();
}

void WinForm::RefreshIfStale() {
    if (program.project.glassTypeList.names != GlassTypeNames(program.project))
        RefreshGlassTypeList(program.project);
}

void WinForm::FocusMoved(QWidget* before, QWidget* now) {
    if (now == nullptr)
        return; // the user may only be looking something up in another program
    const bool isInside = isAncestorOf(now);
    if (isInside && !isAncestorOf(before))
        Form_GotFocus();
    // A message box is a window of its own: answering one does not count as leaving this window.
    if (!isInside && now->window() == window() && qobject_cast<QMenuBar*>(now) == nullptr)
        Form_LostFocus();
}

void WinForm::Form_GotFocus() {
    RefreshIfStale();
    ShowGlassTypes();
    WinList_Click();
}

void WinForm::Form_LostFocus() {
    EnableForSelection(false);
}

void WinForm::WinList_Click() {
    EnableForSelection(!ui.WinList->selectedItems().isEmpty());
}

void WinForm::EnableForSelection(bool selected) {
    // Disabling the focused button would pass the focus on to the next one. The window's own focus
    // is what counts, since a box may still be in front.
    const QWidget* focus = window()->focusWidget();
    if (!selected && (focus == ui.EditBut || focus == ui.DelBut))
        ui.WinList->setFocus();
    ui.EditBut->setEnabled(selected);
    ui.DelBut->setEnabled(selected);
}

std::string WinForm::SelectedName() const {
    const QList<QListWidgetItem*> selected = ui.WinList->selectedItems();
    if (selected.isEmpty())
        return "";
    const auto line = static_cast<std::size_t>(ui.WinList->row(selected.first()));
    return program.project.glassTypeList.names.at(line);
}

void WinForm::OpenEditor() {
    Profile editor(program, this);
    if (editor.exec() == QDialog::Accepted)
        RefreshGlassTypeList(program.project);
}

void WinForm::Addbut_Click() {
    program.perform([this] {
        AddGlassType(program.project, "");
        OpenEditor();
    });
}

void WinForm::EditBut_Click() {
    program.perform([this] {
        if (FindGlassType(program.project, SelectedName()))
            OpenEditor();
    });
}

void WinForm::DelBut_Click() {
    program.perform([this] {
        DeleteGlassType(program.project, SelectedName(), program.prompts);
        // After No nothing happens: the entry stays selected.
        RefreshIfStale();
    });
}

void WinForm::WFLoad_Click() {
    program.perform([this] {
        ImportGlassDefinitions(program.project, program.prompts);
        RefreshGlassTypeList(program.project);
    });
}

} // namespace strativo
