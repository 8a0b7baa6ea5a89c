#include "Journal.h"
#include "WindowChecks.h"
#include "fuzz/Invariants.h"
#include "ui/STRATVMD.h"
#include "ui/WindowArea.h"

#include <QAction>
#include <QMenu>

namespace strativo::monkey {

namespace {

using fuzz::Require;

bool IsEnabled(const QMenu& menu, const char* item) {
    const auto* action = menu.findChild<QAction*>(QLatin1String(item));
    Require(action != nullptr, "the menus have all of their items");
    return action->isEnabled();
}

void RequireFileMenu(UValueMDI& program, const QMenu& menu) {
    const Project& project = program.TheProject();
    Require(IsEnabled(menu, "SaveProject") == project.changed, "Save is offered after changes");
    Require(IsEnabled(menu, "CloseUValue") == InUse(project, program.Area().Active()),
            "Remove construction is offered where one is active");
    for (const char* item : {"NewProject", "OpenProject", "SaveProjectAs", "NewUValue",
                             "LoadStandard", "LoadMaterials", "ImportGlass", "QuitProg"})
        Require(IsEnabled(menu, item), "the other commands on files are always offered");
}

void RequireEditMenu(UValueMDI& program, const QMenu& menu) {
    const Project& project = program.TheProject();
    const int active = program.Area().Active();
    const bool dialog = active == UValueMDI::dialogId;
    const bool hasLayer = InUse(project, active) && project.constructions[active].currentLayer > 0;
    const bool hasClip = !project.clipboard[1].name.empty();
    for (const char* item : {"Edit_Paste", "Edit_PBefore"})
        Require(IsEnabled(menu, item) == (hasClip && !dialog),
                "Paste is offered with a full clipboard outside the dialog");
    for (const char* item : {"Edit_Cut", "Edit_delete"})
        Require(IsEnabled(menu, item) == (hasLayer && !dialog),
                "Cut and Delete are offered where there is a current layer");
    Require(IsEnabled(menu, "Edit_Copy") == (hasLayer || dialog),
            "Copy is offered where there is a current layer, and in the dialog");
    Require(IsEnabled(menu, "EditWin"), "the glass types can always be edited");
}

void RequireWindowMenu(UValueMDI& program, const QMenu& menu) {
    constexpr int fixedItems = 4;
    constexpr int listed = 30;
    const WindowArea& area = program.Area();
    const bool hidden = area.Has(UValueMDI::dialogId) && area.IsHidden(UValueMDI::dialogId);
    const int windows = static_cast<int>(area.Windows().size()) + (hidden ? 1 : 0);
    Require(menu.actions().size()
                == fixedItems + std::min(listed, windows) + (windows > listed ? 1 : 0),
            "the Window menu lists the windows");
    int checked = 0;
    for (const QAction* item : menu.actions())
        checked += item->isChecked() ? 1 : 0;
    Require(checked <= 1, "at most one window is marked as the active one");
    Require(checked == 1 || windows > listed || area.Active() == WindowArea::noWindow,
            "the active window is marked");
}

using Check = void (*)(UValueMDI&, const QMenu&);

void Watch(UValueMDI& program, Journal& journal, const char* menuName, Check check) {
    auto* menu = program.findChild<QMenu*>(QLatin1String(menuName));
    Require(menu != nullptr, "the main window has its menus");
    QObject::connect(menu, &QMenu::aboutToShow, &program, [&program, &journal, menu, check] {
        journal.Reach("menus opened");
        try {
            check(program, *menu);
        } catch (const fuzz::BrokenPromise& broken) {
            journal.Fail(broken.what());
        }
    });
}

} // namespace

void WatchMenus(UValueMDI& program, Journal& journal) {
    Watch(program, journal, "Filemenu", RequireFileMenu);
    Watch(program, journal, "Editmenu", RequireEditMenu);
    Watch(program, journal, "Winmenu", RequireWindowMenu);
}

} // namespace strativo::monkey
