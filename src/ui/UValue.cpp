#include "ui/UValue.h"

#include "calc/LayerList.h"
#include "edit/ConstructionEntry.h"
#include "edit/InfoTexts.h"
#include "edit/LayerClipboard.h"
#include "edit/LayerDrag.h"
#include "project/ThicknessInFile.h"
#include "text/Format.h"
#include "ui/ChildWindow.h"
#include "ui/ConCommentBox.h"
#include "ui/DragImage.h"
#include "ui/DropLabel.h"
#include "ui/EntryField.h"
#include "ui/KeyRepeat.h"
#include "ui/LayerList.h"
#include "ui/Text.h"

#include <QComboBox>
#include <QDrag>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWindow>

namespace strativo {

UValue::UValue(int constructionNumber, Program& owner, QWidget* parent)
    : QWidget(parent), number(constructionNumber), program(owner) {
    setObjectName(QStringLiteral("UValue"));
    RecordSource(program.project, ProgramWindow::construction);
    setFixedSize(FixedSize(*this));
    BuildNameRows();
    BuildHeadings();
    BuildList();
    BuildEntryRows();
    BuildDragImages();
    Describe();
    SetTabOrder();
    setFocusProxy(ui.Construction);
    ConnectSignals();
    ShowConstruction();
}

bool UValue::IsEmpty() const {
    return !InUse(program.project, number);
}

Construction& UValue::Record() {
    return program.project.constructions[number];
}

void UValue::Follow() {
    const bool isShown =
        IsEmpty() ? !isEnabled() : isEnabled() && ShowTheSame(Record(), shownRecord);
    if (!isShown)
        ShowConstruction();
}

void UValue::ShowConstruction() {
    setEnabled(!IsEmpty());
    if (IsEmpty())
        return;
    shownRecord = Record();
    const QSignalBlocker blocked(ui.TypeCombo);
    // A name being typed stays; whether it is kept is decided on leaving the field.
    if (!ui.NameText->isModified())
        ui.NameText->setText(ToText(Record().name));
    SetValueText(*ui.IndexText, tr("Construction index"), ToText(FormatGeneral(number)));
    ui.TypeCombo->setCurrentIndex(Record().type);
    ShowAbsorption(Record().type == transparentType);
    RefreshLayerList();
}

void UValue::RefreshLayerList() {
    if (IsEmpty())
        return;
    const LayerListView view = ViewLayerList(Record());
    const int topLine = Record().window.topLine;
    const bool isScrolledBack = topLine != ui.Construction->TopLine();
    ui.Construction->SetLines(view.lines);
    ui.Construction->SetMarks(view.marks, Record().currentLayer - 1);
    if (isScrolledBack)
        ui.Construction->verticalScrollBar()->setValue(topLine);
    // If the current layer has no thickness the field stays as it is, even with text being typed.
    if (!ui.EditThick->isModified() || CurrentLayer(Record()).thickness > 0
        || Record().currentLayer == 0)
        ui.EditThick->setText(ToText(view.editThick));
    ui.AbsorpText->setText(ToText(view.absorpText));
    SetValueText(*ui.ConName, tr("Current layer"), ToText(view.conName));
    ShowUValue(view.result);
}

void UValue::ShowUValue(const std::string& text) {
    SetValueText(*ui.Result, tr("Indicative U-value"), ToText(text));
}

void UValue::FocusList() {
    ui.Construction->setFocus();
}

void UValue::ShowAbsorption(bool shown) {
    ui.AbsorptionLabel->setVisible(shown);
    ui.AbsorpText->setVisible(shown);
}

void UValue::ConnectSignals() {
    connect(ui.NameText, &EntryField::Entered, this, &UValue::NameText_KeyPress);
    connect(ui.NameText, &EntryField::Left, this, &UValue::NameText_LostFocus);
    connect(ui.TypeCombo, &QComboBox::activated, this, &UValue::TypeCombo_Click);
    connect(ui.EditThick, &EntryField::Entered, this, &UValue::EditThick_KeyPress);
    connect(ui.EditThick, &EntryField::Left, this, &UValue::EditThick_LostFocus);
    connect(ui.AbsorpText, &EntryField::Entered, this, &UValue::AbsorpText_KeyPress);
    connect(ui.AbsorpText, &EntryField::Left, this, &UValue::AbsorpText_LostFocus);
    for (EntryField* field : {ui.NameText, ui.EditThick, ui.AbsorpText})
        connect(field, &EntryField::Escaped, this, &UValue::FocusList);
    connect(ui.Construction, &LayerList::LineTouched, this, &UValue::Construction_Click);
    connect(ui.Construction, &LayerList::DragWanted, this, &UValue::Construction_MouseMove);
    connect(ui.Construction, &LayerList::Dropped, this, &UValue::Construction_DragDrop);
    connect(ui.Construction->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int line) {
                if (!IsEmpty())
                    Record().window.topLine = static_cast<std::int16_t>(line);
            });
    connect(ui.Construction, &LayerList::DeleteReleased, this, [this] {
        program.perform([this] { DeleteLayers(program.project, program.prompts); });
    });
    connect(ui.First, &DropLabel::DragOver, ui.Construction, &LayerList::scrollToTop);
    connect(ui.Last, &DropLabel::DragOver, ui.Construction, &LayerList::scrollToBottom);
    connect(ui.First, &DropLabel::Dropped, this,
            [this](DragKind kind) { Construction_DragDrop(kind, 0); });
    connect(ui.Last, &DropLabel::Dropped, this,
            [this](DragKind kind) { Construction_DragDrop(kind, maxLayers); });
    connect(ui.VWConComments, &QPushButton::clicked, this, &UValue::VWConComments_Click);
    ui.Construction->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui.Construction, &QWidget::customContextMenuRequested, this, [this](QPoint position) {
        emit ContextMenuWanted(ui.Construction->viewport()->mapToGlobal(position));
    });
}

void UValue::NameText_KeyPress() {
    program.perform([this] { EnterName(program.project, number, ToBytes(ui.NameText->text())); });
    FocusList();
}

void UValue::NameText_LostFocus() {
    if (IsEmpty())
        return;
    ui.NameText->setText(ToText(Record().name));
    ui.IndexText->setText(ToText(FormatGeneral(number)));
}

void UValue::TypeCombo_Click(int index) {
    program.perform([this, index] { ChangeType(program.project, number, index); });
}

void UValue::EditThick_KeyPress() {
    EntryResult result = EntryResult::refused;
    program.perform([&] {
        result = EnterThicknessForFile(program.project, number, ToBytes(ui.EditThick->text()),
                                       program.prompts);
    });
    if (result == EntryResult::accepted)
        FocusList();
    else if (result == EntryResult::refused)
        ui.EditThick->selectAll();
}

void UValue::EditThick_LostFocus() {
    if (!IsEmpty())
        RestoreThickness();
}

void UValue::RestoreThickness() {
    if (ShowThickness(Record(), ThicknessEvent::restore))
        ui.EditThick->setText(ToText(ThicknessText(Record().window.shownThickness)));
}

void UValue::AbsorpText_KeyPress() {
    EntryResult result = EntryResult::refused;
    program.perform([&] {
        result = EnterAbsorption(program.project, number, ToBytes(ui.AbsorpText->text()),
                                 program.prompts);
    });
    if (result == EntryResult::accepted)
        FocusList();
    else if (result == EntryResult::refused)
        ui.AbsorpText->selectAll();
}

void UValue::AbsorpText_LostFocus() {
    if (!IsEmpty())
        ui.AbsorpText->setText(ToText(ViewLayerList(Record()).absorpText));
}

void UValue::Construction_Click(int line) {
    program.perform([&] { SelectLine(program.project, number, line, ui.Construction->Marks()); });
    RestoreThickness(); // also over a number that was entered and is not shown by itself
}

void UValue::Construction_MouseMove(int line, QPoint position, bool ctrlHeld) {
    bool started = false;
    program.perform([&] { started = StartLayerDrag(program.project, number, line, ctrlHeld); });
    if (!started)
        return;
    QStringList dragged;
    for (const QListWidgetItem* item : ui.Construction->selectedItems())
        dragged.append(item->text());
    const int row =
        VisibleRow(position.y(), ui.Construction->RowHeightInPixels(), visibleLayerRows);
    QDrag drag(ui.Construction);
    drag.setMimeData(MakeDragPayload(DragKind::layers));
    drag.setPixmap(ui.Label2[row]->Draw(dragged));
    // Offers a single action, so that the pointer shows what will happen.
    drag.exec(ctrlHeld ? Qt::CopyAction : Qt::MoveAction);
}

void UValue::Construction_DragDrop(DragKind kind, int row) {
    program.perform([&] {
        if (kind == DragKind::layers)
            DropLayers(program.project, number, row, program.prompts);
        else
            DropMaterial(program.project, number, row, program.prompts);
    });
}

void UValue::VWConComments_Click() {
    ConCommentBox box(program, nullptr);
    // Without an owner it would block all windows, the help too.
    box.setWindowModality(Qt::WindowModal);
    box.winId();
    box.windowHandle()->setTransientParent(window()->windowHandle());
    box.exec();
}

bool UValue::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && watched == ui.TypeCombo) {
        // The mouse wheel would change the type unnoticed.
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress && watched != ui.NameText && watched != ui.EditThick
        && watched != ui.AbsorpText && WindowKey(static_cast<QKeyEvent*>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}

bool UValue::WindowKey(QKeyEvent* event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier)
        return CommandKey(*event);
    const bool plain = !(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!plain || !StartsThicknessEntry(ToBytes(event->text())))
        return false;
    if (IsRepeat(*event))
        return true; // a digit still held after Enter does not begin another entry
    ui.EditThick->setFocus();
    ui.EditThick->setText(event->text());
    ui.EditThick->setModified(true);
    return true;
}

bool UValue::CommandKey(const QKeyEvent& event) {
    const int key = event.key();
    using Command = void (*)(Project&, Prompts&);
    const Command command = key == Qt::Key_X   ? CutLayers
                            : key == Qt::Key_C ? CopyLayers
                            : key == Qt::Key_V ? PasteLayers
                            : key == Qt::Key_B ? PasteLayersBefore
                                               : nullptr;
    if (command == nullptr)
        return false;
    // A held Cut would remove one layer after another and keep only the last.
    if (!IsRepeat(event))
        program.perform([&] { command(program.project, program.prompts); });
    return true;
}

void UValue::mousePressEvent(QMouseEvent* event) {
    // A press on a label comes here too; only bare background beeps.
    if (childAt(event->position().toPoint()) == nullptr)
        program.prompts.Beep();
    event->ignore();
}

} // namespace strativo
