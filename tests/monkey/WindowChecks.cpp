#include "WindowChecks.h"

#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "edit/MaterialList.h"
#include "fuzz/Invariants.h"
#include "ui/ChildWindow.h"
#include "ui/MaterialList.h"
#include "ui/STRATVMD.h"
#include "ui/Text.h"
#include "ui/UvalsDialog.h"
#include "ui/WINFORM.h"
#include "ui/WindowArea.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

namespace strativo::monkey {

namespace {

using fuzz::Require;

template <class Control>
Control* Find(QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(QLatin1String(name));
    Require(control != nullptr, "the windows have all of their controls");
    return control;
}

const ChildWindow* FrameOf(const QWidget* widget) {
    while (widget != nullptr && qobject_cast<const ChildWindow*>(widget) == nullptr)
        widget = widget->parentWidget();
    return static_cast<const ChildWindow*>(widget);
}

void RequireRecords(const Project& project, const WindowArea& area) {
    for (int number = 1; number <= project.constructions.Size(); ++number) {
        if (!InUse(project, number))
            continue;
        Require(area.Has(number), "each open construction has its window");
        Require(!area.IsHidden(number), "the window of a construction is never hidden");
        Require(area.Caption(number) == ToText(ConstructionTitle(number)),
                "the caption of a construction's window is its title");
    }
    for (const int id : area.Windows())
        Require(id <= 0 || InUse(project, id) || area.Caption(id) == QLatin1String("Construction"),
                "a window without a construction has no number in its caption");
}

void RequireActive(const Project& project, const WindowArea& area) {
    const int active = area.Active();
    Require(project.dialogActive == (active == UValueMDI::dialogId),
            "the project knows whether the dialog is active");
    if (active == WindowArea::noWindow)
        return;
    Require(area.Has(active), "the active window exists");
    Require(!area.IsHidden(active) && !area.IsMinimised(active), "the active window can be seen");
    Require(!InUse(project, active) || project.currentConstruction == active,
            "the current construction is the active one");
}

const ChildWindow* ActiveFrame(const WindowArea& area) {
    for (const ChildWindow* frame : area.findChildren<ChildWindow*>())
        if (!frame->isHidden() && frame->Id() == area.Active())
            return frame;
    return nullptr;
}

/// The frames that can be seen lie upon each other as the toolkit's children do.
void RequireFrames(const WindowArea& area) {
    const ChildWindow* top = nullptr; // of the windows beside Select Material
    const ChildWindow* dialog = nullptr;
    for (const ChildWindow* frame : area.findChildren<ChildWindow*>()) {
        if (frame->isHidden() || !area.Has(frame->Id()))
            continue;
        Require(frame->IsMinimised() == area.IsMinimised(frame->Id()), "icons are drawn as icons");
        Require(frame->IsMinimised() || frame->Content() != nullptr, "a window has its content");
        Require(frame->Content() == nullptr || frame->Content()->isHidden() == frame->IsMinimised(),
                "the content of a window can be seen, that of an icon cannot");
        if (frame->IsMinimised())
            continue;
        (frame->Id() == UValueMDI::dialogId ? dialog : top) = frame;
    }
    if (area.Active() == WindowArea::noWindow)
        return;
    const ChildWindow* active = ActiveFrame(area);
    Require(active != nullptr, "the active window has a frame");
    // Select Material may lie above the active window, where a Cascade leaves it; frames of which
    // nothing can be seen lie in no order.
    const bool isCovered = dialog != nullptr && active != dialog
                           && dialog->geometry().contains(active->geometry() & area.rect());
    Require(isCovered || active == dialog || active == top, "the active window is on top");
}

void RequireFocus(UValueMDI& program) {
    const ChildWindow* frame = FrameOf(program.focusWidget());
    Require(frame == nullptr || frame->Id() == program.Area().Active(),
            "the window with the focus is the active one");
}

void RequireDialog(UValueMDI& program) {
    const Project& project = program.TheProject();
    UvalsDialog& dialog = program.Dialog();
    const auto* list = Find<MaterialList>(dialog, "UValueList");
    const std::vector<std::string> lines = MaterialLines(project);
    Require(list->count() == static_cast<int>(lines.size()), "each material has its line");
    for (int line = 0; line < list->count(); ++line)
        Require(list->item(line)->text() == ToText(lines[static_cast<std::size_t>(line)]),
                "the lines shown are those of the library");
    Require(project.selectedMaterial == list->SelectedLine() + 1,
            "the selected material is the selected line");
    const bool user = project.shownLibrary == userLibraryNumber;
    Require(Find<QRadioButton>(dialog, "MatOption_0")->isChecked() == !user
                && Find<QRadioButton>(dialog, "MatOption_1")->isChecked() == user,
            "the option marked is the library shown");
    Require(Find<QRadioButton>(dialog, "MatOption_1")->isEnabled() == project.userLoaded,
            "the user library can be chosen exactly while it is loaded");
    Require(program.Area().Caption(UValueMDI::dialogId) == dialog.Caption(),
            "the dialog's caption names the library shown");
}

void RequireGlassWindow(UValueMDI& program) {
    auto* glass = program.findChild<WinForm*>();
    if (glass == nullptr || !program.Area().Has(UValueMDI::glassId))
        return;
    const auto* list = Find<QListWidget>(*glass, "WinList");
    const bool hasFocus = glass->isAncestorOf(program.focusWidget());
    const bool selected = !list->selectedItems().isEmpty();
    for (const char* button : {"EditBut", "DelBut"})
        Require(!Find<QPushButton>(*glass, button)->isEnabled() || selected,
                "only a selected glass type can be edited or deleted");
    if (!hasFocus)
        return;
    QStringList shown;
    for (int line = 0; line < list->count(); ++line)
        shown << list->item(line)->text();
    QStringList stored;
    for (const std::string& name : GlassTypeNames(program.TheProject()))
        stored << ToText(name);
    Require(shown == stored, "the glass types listed are those stored");
}

void RequireStatus(UValueMDI& program) {
    const Project& project = program.TheProject();
    Require(Find<QLabel>(program, "ChangedStatus")->text().isEmpty() == !project.changed,
            "the status bar says whether there are unsaved changes");
    const bool untitled = Find<QLabel>(program, "FileStatus")->text() == QLatin1String("Untitled");
    Require(untitled == project.constructionFile.empty(), "the status bar names the file");
    Require(project.constructionFile != singleBlank, "no file is called a single blank");
    Require(Find<QProgressBar>(program, "Progress")->isHidden(), "no progress is left over");
    Require(QApplication::overrideCursor() == nullptr, "the pointer is not left busy");
}

void RequireNoBox(const UValueMDI& program) {
    Require(QApplication::activeModalWidget() == nullptr, "no modal box is left");
    Require(program.findChild<QDialog*>() == nullptr, "no box is kept");
}

} // namespace

std::string WhereThingsAre(UValueMDI& program) {
    const Project& project = program.TheProject();
    const QWidget* focus = program.focusWidget();
    const ChildWindow* frame = FrameOf(focus);
    const QString text =
        QStringLiteral("active window %1, focus in %2 of window %3, construction %4 of %5, layer "
                       "%6, seen %7 %8")
            .arg(program.Area().Active())
            .arg(focus == nullptr ? QStringLiteral("nothing") : focus->objectName())
            .arg(frame == nullptr ? WindowArea::noWindow : frame->Id())
            .arg(project.currentConstruction)
            .arg(project.constructions.Size())
            .arg(project.constructions.Has(project.currentConstruction)
                     ? project.constructions[project.currentConstruction].currentLayer
                     : 0)
            .arg(focus != nullptr && focus->isVisible())
            .arg(frame != nullptr && frame->IsMinimised());
    return text.toStdString();
}

void RequireWindows(UValueMDI& program) {
    const Project& project = program.TheProject();
    RequireNoBox(program);
    RequireRecords(project, program.Area());
    RequireActive(project, program.Area());
    RequireFrames(program.Area());
    RequireFocus(program);
    RequireDialog(program);
    RequireGlassWindow(program);
    RequireStatus(program);
    RequireConstructionWindows(program);
}

} // namespace strativo::monkey
