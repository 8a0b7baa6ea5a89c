#include "edit/ConstructionSlots.h"
#include "edit/InfoTexts.h"
#include "edit/LayerClipboard.h"
#include "edit/MaterialList.h"
#include "edit/MenuStates.h"
#include "files/GlassImport.h"
#include "project/FileCommands.h"
#include "project/LibraryCommands.h"
#include "project/NewProject.h"
#include "ui/About_Strativo.h"
#include "ui/AccessKeys.h"
#include "ui/MoreWindows.h"
#include "ui/QtPrompts.h"
#include "ui/STRATVMD.h"
#include "ui/Text.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QShortcut>
#include <QStatusBar>

#include <utility>

// The menu bar and the status bar of the main window. The key names in the Edit captions are part
// of the captions: the items bind no keys, the construction window's own handler does.

namespace strativo {

namespace {

constexpr std::size_t numberedWindows = 9;
constexpr std::size_t listedWindows = 30;

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
            [this] { NewProject(project, *prompts); });
    AddItem(menu, "OpenProject", tr("&Open construction file..."),
            [this] { OpenProject(project, *prompts); });
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
        ShowDialog();
    });
    AddItem(menu, "LoadMaterials", tr("&Load user material file"), [this] {
        LoadMaterials(project, *prompts);
        ShowDialog();
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
    AddItem(menu, "MakeIcon", tr("Make all &Icons"), [this] { MakeIcon_Click(); });
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
        auto* shortcut = new QShortcut(QKeySequence(key), this);
        connect(shortcut, &QShortcut::activated, this, [this, action] { Perform(action); });
    };
    const auto next = [this] { area->ActivateNext(false); };
    const auto previous = [this] { area->ActivateNext(true); };
    addKey(Qt::CTRL | Qt::Key_Tab, next);
    addKey(Qt::CTRL | Qt::Key_F6, next);
    addKey(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, previous);
    addKey(Qt::CTRL | Qt::SHIFT | Qt::Key_F6, previous);
    addKey(Qt::CTRL | Qt::Key_F4, [this] { CloseActive(); });
    addKey(Qt::NoModifier | Qt::Key_F10,
           [this] { menuBar()->setActiveAction(menuBar()->actions().front()); });
    new AccessKeys([this] { return area->Content(area->Active()); }, *menuBar(), this);
}

void UValueMDI::Filemenu_Click() {
    const FileMenuState state = FileMenu(project, ActiveTag());
    ui.SaveProject->setEnabled(state.save);
    ui.CloseUValue->setEnabled(state.removeConstruction);
}

void UValueMDI::Editmenu_Click() {
    const EditMenuState state = EditMenu(project, ActiveTag());
    ui.Edit_Cut->setEnabled(state.cut);
    ui.Edit_Copy->setEnabled(state.copy);
    ui.Edit_Paste->setEnabled(state.paste);
    ui.Edit_PBefore->setEnabled(state.pasteBefore);
    ui.Edit_delete->setEnabled(state.deleteLayers);
}

void UValueMDI::CloseUValue_Click() {
    CloseConstruction(project, ActiveTag(), *prompts);
}

void UValueMDI::Edit_Click(Command command) {
    command(project, *prompts);
}

void UValueMDI::Edit_Paste_Click(Command command) {
    command(project, *prompts);
    // With another window in front the layers would have been pasted out of sight.
    if (area->Active() != project.currentConstruction)
        ActivateCurrent();
}

void UValueMDI::EditWin_Click() {
    OpenGlassTypes();
    RefreshGlassTypes();
}

void UValueMDI::Sort_Click(void (*sort)(Project&)) {
    ShowDialog();
    sort(project);
    strativo::RefreshMaterialList(project, *prompts);
}

void UValueMDI::MakeIcon_Click() {
    for (const int slot : SlotsToMinimise(project)) {
        if (!area->Has(slot))
            area->Open(slot, CaptionOf(slot));
        area->SetMinimised(slot, true);
    }
    if (area->Active() != WindowArea::noWindow && area->IsMinimised(area->Active()))
        area->ActivateTop();
}

void UValueMDI::Winmenu_Click() {
    while (ui.Winmenu->actions().size() > fixedWindowItems)
        delete ui.Winmenu->actions().last();
    const std::vector<int> windows = area->Windows();
    for (std::size_t i = 0; i < windows.size() && i < listedWindows; ++i) {
        const int id = windows[i];
        QString caption = area->Caption(id);
        caption.replace(QLatin1Char('&'), QLatin1String("&&"));
        if (i < numberedWindows)
            caption.prepend(QStringLiteral("&%1 ").arg(i + 1));
        QAction* item = AddItem(ui.Winmenu, "Window", caption, [this, id] { area->Activate(id); });
        // Only one can be marked: the others need no empty box.
        item->setCheckable(id == area->Active());
        item->setChecked(id == area->Active());
    }
    // The dialog can be hidden, and must be there to be chosen all the same.
    if (area->Has(dialogId) && area->IsHidden(dialogId))
        AddItem(ui.Winmenu, "Window", area->Caption(dialogId),
                [this] { area->Activate(dialogId); });
    if (windows.size() > listedWindows)
        AddItem(ui.Winmenu, "MoreWindows", tr("More windows..."), [this] { MoreWindows_Click(); });
}

void UValueMDI::MoreWindows_Click() {
    const std::vector<int> windows = area->Windows();
    QStringList captions;
    for (const int id : windows)
        captions.append(area->Caption(id));
    const int chosen = ChooseWindow(captions, this);
    if (chosen >= 0)
        area->Activate(windows[static_cast<std::size_t>(chosen)]);
}

void UValueMDI::HelpAbout_Click() {
    About_Strativo(program, windowTitle(), this).exec();
}

void UValueMDI::BuildStatusBar() {
    const auto addLabel = [this](const char* objectName, int stretch) {
        auto* label = new QLabel(this);
        label->setObjectName(QLatin1String(objectName));
        label->setTextFormat(Qt::PlainText);
        label->setMinimumWidth(1); // a long name is cut; it must not widen the main window
        statusBar()->addWidget(label, stretch);
        return label;
    };
    ui.FileStatus = addLabel("FileStatus", 0);
    ui.ChangedStatus = addLabel("ChangedStatus", 1);
    ui.LibraryStatus = addLabel("LibraryStatus", 0);
    ui.Progress = new QProgressBar(this);
    ui.Progress->setObjectName(QStringLiteral("Progress"));
    ui.Progress->setAccessibleName(tr("Part of the file read"));
    ui.Progress->setFixedSize(180, 16);
    ui.Progress->setRange(0, 1000);
    ui.Progress->hide();
    statusBar()->addPermanentWidget(ui.Progress);
    RefreshStatus();
}

void UValueMDI::RefreshStatus() {
    const auto fileName = [](const std::string& path) {
        return path == singleBlank ? QString() : QFileInfo(PathText(path)).fileName();
    };
    const QString file = fileName(project.constructionFile);
    ui.FileStatus->setText(file.isEmpty() ? tr("Untitled") : file);
    ui.FileStatus->setToolTip(PathText(project.constructionFile));
    ui.ChangedStatus->setText(project.changed ? tr("* unsaved changes") : QString());
    const QString libraries = tr("Standard library: %1   User library: %2");
    const QString none = tr("none loaded");
    const std::string& standard = project.standardLibraryFile;
    const std::string& user = project.userLibraryFile;
    ui.LibraryStatus->setText(libraries.arg(project.standardLoaded ? fileName(standard) : none,
                                            project.userLoaded ? fileName(user) : none));
    ui.LibraryStatus->setToolTip(libraries.arg(project.standardLoaded ? PathText(standard) : none,
                                               project.userLoaded ? PathText(user) : none));
}

void UValueMDI::EndProgress() {
    if (std::exchange(busyPointer, false))
        QApplication::restoreOverrideCursor();
    reading.invalidate();
    ui.Progress->hide();
}

/// Most files are read before anybody could see that something goes on.
void UValueMDI::ShowProgress(std::size_t done, std::size_t total) {
    constexpr qint64 untilPointer = 100; // ms
    constexpr qint64 untilBar = 500;     // ms
    if (done >= total) {
        EndProgress();
        return;
    }
    if (!reading.isValid())
        reading.start();
    if (reading.elapsed() >= untilPointer && !std::exchange(busyPointer, true))
        QApplication::setOverrideCursor(Qt::WaitCursor);
    if (reading.elapsed() < untilBar)
        return;
    // Drawn at once and without looking at any event, so that nothing else can begin meanwhile.
    ui.Progress->setValue(
        static_cast<int>(1000.0 * static_cast<double>(done) / static_cast<double>(total)));
    ui.Progress->show();
    statusBar()->repaint();
    ui.Progress->repaint();
}

} // namespace strativo
