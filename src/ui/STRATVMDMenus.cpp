#include "edit/GlassTypes.h"
#include "edit/LayerClipboard.h"
#include "edit/MaterialList.h"
#include "edit/MenuStates.h"
#include "edit/WindowList.h"
#include "files/GlassImport.h"
#include "project/FileCommands.h"
#include "project/LibraryCommands.h"
#include "project/NewProject.h"
#include "ui/About_Strativo.h"
#include "ui/AccessKeys.h"
#include "ui/HelpKey.h"
#include "ui/KeyRepeat.h"
#include "ui/MoreWindows.h"
#include "ui/ProjectView.h"
#include "ui/QtPrompts.h"
#include "ui/STRATVMD.h"
#include "ui/Text.h"
#include "ui/WindowArea.h"
#include "ui/WorkWatch.h"

#include <QAction>
#include <QMenuBar>
#include <QShortcut>

#include <algorithm>
#include <utility>

// The menu bar of the main window. The key names in the Edit captions are plain text: the items
// bind no keys, the construction window handles them itself.

namespace strativo {

namespace {

constexpr std::size_t listedWindows = 30;
constexpr qsizetype longestAction = 60; // characters, in a menu

/// Cascade, Make all Icons, Arrange Icons and a separator stand before the list of windows.
constexpr int fixedWindowItems = 4;

} // namespace

QMenu* UValueMDI::AddMenu(const char* objectName, const QString& caption) {
    QMenu* menu = menuBar()->addMenu(caption);
    menu->setObjectName(QLatin1String(objectName));
    return menu;
}

QAction* UValueMDI::AddItem(QMenu* menu, const char* objectName, const QString& caption,
                            std::function<void()> handler) {
    QAction* item = menu->addAction(caption);
    item->setObjectName(QLatin1String(objectName));
    item->setMenuRole(QAction::NoRole);
    connect(item, &QAction::triggered, this,
            [this, handler = std::move(handler)] { Perform(handler); });
    return item;
}

void UValueMDI::AddSeparator(QMenu* menu, const char* objectName) {
    menu->addSeparator()->setObjectName(QLatin1String(objectName));
}

void UValueMDI::BuildMenus() {
    BuildFileMenu();
    BuildEditMenu();
    BuildSortMenu();
    BuildWindowMenu();
    BuildHelpMenu();
}

void UValueMDI::BuildFileMenu() {
    QMenu* menu = ui.Filemenu = AddMenu("Filemenu", tr("&File"));
    connect(menu, &QMenu::aboutToShow, this, &UValueMDI::Filemenu_Click);
    AddItem(menu, "NewProject", tr("&New construction file"),
            [this] { Replace_Click(NewProject); });
    AddItem(menu, "OpenProject", tr("&Open construction file..."),
            [this] { Replace_Click(OpenProject); });
    ui.SaveProject = AddItem(menu, "SaveProject", tr("&Save construction file"),
                             [this] { SaveProject(project, *prompts); });
    AddItem(menu, "SaveProjectAs", tr("Save construction file &as..."),
            [this] { SaveProjectAs(project, *prompts); });
    AddSeparator(menu, "sep1");
    AddItem(menu, "NewUValue", tr("New &construction"),
            [this] { NewConstruction(project, *prompts); });
    ui.CloseUValue =
        AddItem(menu, "CloseUValue", tr("&Remove construction"), [this] { CloseUValue_Click(); });
    AddSeparator(menu, "sep2");
    AddItem(menu, "LoadStandard", tr("Loa&d standard material file"), [this] {
        LoadStandard(project, *prompts);
        project.dialogHidden = false;
    });
    AddItem(menu, "LoadMaterials", tr("&Load user material file"), [this] {
        LoadMaterials(project, *prompts);
        project.dialogHidden = false;
    });
    AddSeparator(menu, "sep3");
    AddItem(menu, "ImportGlass", tr("Import &glass definitions"),
            [this] { ImportGlassDefinitions(project, *prompts); });
    AddSeparator(menu, "sep4");
    AddItem(menu, "QuitProg", tr("E&xit"), [this] { close(); });
}

void UValueMDI::BuildEditMenu() {
    QMenu* menu = ui.Editmenu = AddMenu("Editmenu", tr("&Edit"));
    connect(menu, &QMenu::aboutToShow, this, &UValueMDI::Editmenu_Click);
    ui.Edit_Cut = AddItem(menu, "Edit_Cut", tr("Cu&t                   Ctrl+X   "),
                          [this] { Edit_Click(CutLayers); });
    ui.Edit_Copy = AddItem(menu, "Edit_Copy", tr("&Copy                Ctrl+C"),
                           [this] { Edit_Click(CopyLayers); });
    ui.Edit_Paste = AddItem(menu, "Edit_Paste", tr("&Paste               Ctrl+V"),
                            [this] { Edit_Paste_Click(PasteLayers); });
    ui.Edit_PBefore = AddItem(menu, "Edit_PBefore", tr("Paste &before    Ctrl+B"),
                              [this] { Edit_Paste_Click(PasteLayersBefore); });
    ui.Edit_delete = AddItem(menu, "Edit_delete", tr("&Delete              Del"),
                             [this] { Edit_Click(DeleteLayers); });
    AddSeparator(menu, "sep5");
    AddItem(menu, "EditWin", tr("Edit &glass types"), [this] { EditWin_Click(); });
}

void UValueMDI::BuildSortMenu() {
    QMenu* menu = ui.Sortmenu = AddMenu("Sortmenu", tr("&Sort"));
    AddItem(menu, "NameSort", tr("&Name"), [this] { Sort_Click(SortByName); });
    AddItem(menu, "CondSort", tr("&Conductivity"), [this] { Sort_Click(SortByConductivity); });
    AddItem(menu, "DensitySort", tr("&Density"), [this] { Sort_Click(SortByDensity); });
    AddItem(menu, "HeatSort", tr("&Specific Heat"), [this] { Sort_Click(SortBySpecificHeat); });
}

void UValueMDI::BuildWindowMenu() {
    QMenu* menu = ui.Winmenu = AddMenu("Winmenu", tr("&Window"));
    connect(menu, &QMenu::aboutToShow, this, &UValueMDI::Winmenu_Click);
    AddItem(menu, "Cascade", tr("&Cascade"), [this] { area->Cascade(); });
    AddItem(menu, "MakeIcon", tr("Make all &Icons"), [this] { view->MinimiseAll(); });
    AddItem(menu, "ArrangeIcons", tr("&Arrange Icons"), [this] { area->ArrangeIcons(); });
    menu->addSeparator();
}

void UValueMDI::BuildHelpMenu() {
    QMenu* menu = ui.HelpMenu = AddMenu("HelpMenu", tr("&Help"));
    AddItem(menu, "HelpContents", tr("&Contents"), [this] { prompts->ShowHelpContents(); });
    AddSeparator(menu, "sep6");
    AddItem(menu, "HelpAbout", tr("&About Strativo"), [this] { HelpAbout_Click(); });
}

void UValueMDI::BuildShortcuts() {
    const auto addKey = [this](QKeyCombination key, const std::function<void()>& action) {
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this,
                [this, action] { Perform(action); });
    };
    const auto next = [this] { area->ActivateNext(false); };
    const auto previous = [this] { area->ActivateNext(true); };
    addKey(Qt::CTRL | Qt::Key_Tab, next);
    addKey(Qt::CTRL | Qt::Key_F6, next);
    addKey(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, previous);
    addKey(Qt::CTRL | Qt::SHIFT | Qt::Key_F6, previous);
    AddCommandKey(this, Qt::CTRL | Qt::Key_F4, [this] { CloseActive(); });
    addKey(Qt::NoModifier | Qt::Key_F10,
           [this] { menuBar()->setActiveAction(menuBar()->actions().front()); });
    addKey(Qt::NoModifier | Qt::Key_F9, [this] { OpenSection(); });
    AddFileKeys(this);
    new HelpKey([this](const QWidget& window) { ShowHelpAbout(window); }, this);
    AddUndoKeys(this);
    new AccessKeys([this] { return area->Content(area->Active()); }, *menuBar(), this);
}

void UValueMDI::AddCommandKey(QWidget* window, QKeyCombination key,
                              const std::function<void()>& action) {
    ActOncePerPress(new QShortcut(QKeySequence(key), window), [this, action] { Perform(action); });
}

void UValueMDI::AddFileKeys(QWidget* window) {
    AddCommandKey(window, Qt::CTRL | Qt::Key_N, [this] { Replace_Click(NewProject); });
    AddCommandKey(window, Qt::CTRL | Qt::Key_O, [this] { Replace_Click(OpenProject); });
    AddCommandKey(window, Qt::CTRL | Qt::Key_S, [this] { SaveProjectByKey(project, *prompts); });
}

void UValueMDI::BuildLayerMenu() {
    layerMenu = new QMenu(this);
    layerMenu->setObjectName(QStringLiteral("LayerMenu"));
    ui.UndoItem = AddItem(layerMenu, "Undo", QString(), [this] { Undo(); });
    ui.RedoItem = AddItem(layerMenu, "Redo", QString(), [this] { Redo(); });
    layerMenu->addSeparator();
    layerMenu->addActions(ui.Editmenu->actions());
    layerMenu->addSeparator();
    AddItem(layerMenu, "OpenSection", tr("Section\tF9"), [this] { OpenSection(); });
}

/// What was done last, the Edit menu's items, and what concerns the construction as a whole.
void UValueMDI::ShowLayerMenu(QPoint position) {
    if (layerMenu == nullptr)
        BuildLayerMenu();
    Editmenu_Click();
    const auto show = [](QAction& item, const QString& caption, const std::string& action) {
        item.setText(caption.arg(MenuCaption(Elided(ToText(action), longestAction))));
        item.setEnabled(!action.empty());
    };
    show(*ui.UndoItem, tr("Undo %1\tCtrl+Z"), history.NextUndo());
    show(*ui.RedoItem, tr("Redo %1\tCtrl+Y"), history.NextRedo());
    layerMenu->popup(position);
}

void UValueMDI::Filemenu_Click() {
    const FileMenuState state = FileMenu(project, ActiveConstruction());
    ui.SaveProject->setEnabled(state.save);
    ui.CloseUValue->setEnabled(state.removeConstruction);
}

void UValueMDI::Editmenu_Click() {
    const EditMenuState state = EditMenu(project, ActiveConstruction());
    ui.Edit_Cut->setEnabled(state.cut);
    ui.Edit_Copy->setEnabled(state.copy);
    ui.Edit_Paste->setEnabled(state.paste);
    ui.Edit_PBefore->setEnabled(state.pasteBefore);
    ui.Edit_delete->setEnabled(state.deleteLayers);
}

void UValueMDI::CloseUValue_Click() {
    CloseConstruction(project, ActiveConstruction());
}

/// Runs a command that asks about unsaved changes before it replaces the project.
template <class Result>
void UValueMDI::Replace_Click(Result (*command)(Project&, Prompts&)) {
    watch->Keeper().ExpectReplacement(project, AsksAboutChanges(project));
    command(project, *prompts);
}

void UValueMDI::Edit_Click(Command command) {
    command(project, *prompts);
}

void UValueMDI::Edit_Paste_Click(Command command) {
    command(project, *prompts);
    // With another window in front, the user would not see where the layers were pasted.
    if (area->Active() != project.currentConstruction)
        view->ActivateCurrent();
}

void UValueMDI::EditWin_Click() {
    OpenGlassTypes();
    RefreshGlassTypeList(project);
}

void UValueMDI::Sort_Click(void (*sort)(Project&)) {
    project.dialogHidden = false;
    sort(project);
    RefreshMaterialList(project);
}

void UValueMDI::Winmenu_Click() {
    while (ui.Winmenu->actions().size() > fixedWindowItems)
        delete ui.Winmenu->actions().last();
    const WindowIds ids = IdsOfWindows();
    for (const auto& [id, digit] : WindowsInMenu(ids.constructions, ids.others, listedWindows))
        AddWindowItem(id, digit);
    if (ids.constructions.size() + ids.others.size() > listedWindows)
        AddItem(ui.Winmenu, "MoreWindows", tr("&More windows..."), [this] { MoreWindows_Click(); });
}

/// The dialog may be hidden and is listed all the same, so that it can be brought back.
UValueMDI::WindowIds UValueMDI::IdsOfWindows() const {
    WindowIds ids;
    for (const int id : area->Windows())
        (id > dialogId ? ids.constructions : ids.others).push_back(id);
    if (area->Has(dialogId) && area->IsHidden(dialogId))
        ids.others.push_back(dialogId);
    std::sort(ids.others.rbegin(), ids.others.rend()); // Select Material first
    return ids;
}

void UValueMDI::AddWindowItem(int id, int digit) {
    const QString number = digit > 0 ? QStringLiteral("&%1 ").arg(digit) : QString();
    const QString caption = number + MenuCaption(area->Caption(id));
    // A file that is dropped while the menu is open takes the windows of another one away.
    QAction* item = AddItem(ui.Winmenu, "Window", caption, [this, id] {
        if (area->Has(id))
            area->Activate(id);
    });
    item->setStatusTip(Elided(NameOfWindow(id)));
    // Only one item can be checked, so the others need no empty check box.
    item->setCheckable(id == area->Active());
    item->setChecked(id == area->Active());
}

/// The construction's name; of any other window the caption, which names it well enough.
QString UValueMDI::NameOfWindow(int id) const {
    return InUse(project, id) ? ToText(project.constructions[id].name) : area->Caption(id);
}

void UValueMDI::MoreWindows_Click() {
    const WindowIds ids = IdsOfWindows();
    std::vector<int> windows = ids.constructions;
    windows.insert(windows.end(), ids.others.begin(), ids.others.end());
    std::vector<WindowLine> lines;
    for (const int id : windows)
        lines.push_back(InUse(project, id)
                            ? LineOfConstruction(project, id)
                            : WindowLine{"", area->Caption(id).toStdString(), "", ""});
    const int chosen = ChooseWindow(lines, this);
    if (chosen >= 0)
        area->Activate(windows[static_cast<std::size_t>(chosen)]);
}

void UValueMDI::HelpAbout_Click() {
    About_Strativo(program, windowTitle(), this).exec();
}

} // namespace strativo
