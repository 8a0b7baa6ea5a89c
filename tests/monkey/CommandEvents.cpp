#include "Stage.h"
#include "files/ProjectSnapshot.h"
#include "fuzz/Invariants.h"
#include "ui/UvalsDialog.h"
#include "ui/WINFORM.h"
#include "ui/WindowArea.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

namespace strativo::monkey {

namespace {

/// Opens a menu with the mouse or with its key; what is chosen there is the next events' business.
bool OpenMenu(Stage& stage) {
    QMenuBar* bar = stage.program->menuBar();
    QAction* title = stage.dice.Pick(bar->actions());
    const bool byKey = stage.dice.OneIn(3);
    stage.Say(Detail(title->text()) + (byKey ? " by key" : ""));
    if (byKey) {
        stage.hands.Key(Qt::Key_F10);
        for (qsizetype steps = bar->actions().indexOf(title); steps > 0; --steps)
            stage.hands.Key(Qt::Key_Right);
        stage.hands.Key(Qt::Key_Down);
    } else {
        stage.hands.Click(bar, bar->actionGeometry(title).center());
    }
    return true;
}

/// A command of a menu, opened by the mouse and chosen at once.
bool MenuCommand(Stage& stage, const char* menuName, const char* itemName) {
    auto* menu = stage.program->findChild<QMenu*>(QLatin1String(menuName));
    QMenuBar* bar = stage.program->menuBar();
    stage.Say(itemName);
    stage.hands.Click(bar, bar->actionGeometry(menu->menuAction()).center());
    auto* item = menu->findChild<QAction*>(QLatin1String(itemName));
    if (menu->isVisible() && item->isEnabled())
        stage.hands.Click(menu, menu->actionGeometry(item).center());
    else if (menu->isVisible())
        menu->close();
    return true;
}

bool NewConstruction(Stage& stage) {
    return MenuCommand(stage, "Filemenu", "NewUValue");
}

bool FileCommand(Stage& stage) {
    constexpr const char* items[] = {
        "OpenProject",   "OpenProject",   "SaveProject",  "SaveProject", "SaveProjectAs",
        "SaveProjectAs", "LoadMaterials", "LoadStandard", "ImportGlass", "CloseUValue"};
    return MenuCommand(stage, "Filemenu", stage.dice.Pick(items));
}

bool WindowCommand(Stage& stage) {
    constexpr const char* items[] = {"Cascade", "MakeIcon", "ArrangeIcons"};
    return MenuCommand(stage, "Winmenu", stage.dice.Pick(items));
}

/// A button of the glass types window or a line of its list; opens the window where it is not.
bool GlassWindow(Stage& stage) {
    auto* glass = stage.program->findChild<WinForm*>();
    if (glass == nullptr || !glass->isVisible())
        return MenuCommand(stage, "Editmenu", "EditWin");
    auto* list = glass->findChild<QListWidget*>(QStringLiteral("WinList"));
    auto* button = AnySeen<QPushButton>(stage.dice, *glass);
    if (button != nullptr && button->objectName() == QLatin1String("Closebut")
        && !stage.dice.OneIn(4))
        button = glass->findChild<QPushButton*>(QStringLiteral("Addbut"));
    const bool line = list->count() > 0 && stage.dice.OneIn(2);
    stage.Say(line ? "line" : Detail(Describe(button)));
    if (line)
        stage.hands.Click(
            list->viewport(),
            list->visualItemRect(stage.dice.Pick(list->findItems(QString(), Qt::MatchContains)))
                .center());
    else
        stage.hands.Click(button, button->rect().center());
    return true;
}

/// Whether there was a step to take back or to do again.
bool MovesInHistory(Stage& stage, Qt::Key key) {
    const std::size_t before = stage.program->Steps().Length();
    stage.hands.Key(key, Qt::ControlModifier);
    return stage.program->Steps().Length() != before;
}

/// Takes some steps back; does them again, most of the time.
bool HistoryWalk(Stage& stage) {
    if (qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr)
        return false; // a field has a history of its own
    const Project& project = stage.program->TheProject();
    const std::uint64_t before = ContentDigest(project);
    const int wanted = stage.dice.Between(1, 12);
    const bool returns = !stage.dice.OneIn(4);
    stage.Say(std::to_string(wanted) + (returns ? " steps back and forth" : " steps back"));
    int steps = 0;
    while (steps < wanted && MovesInHistory(stage, Qt::Key_Z))
        ++steps;
    if (steps > 0)
        stage.journal.Reach("steps taken back");
    for (int i = 0; i < steps && returns; ++i)
        fuzz::Require(MovesInHistory(stage, Qt::Key_Y), "what was taken back can be done again");
    fuzz::Require(!returns || ContentDigest(project) == before,
                  "what was taken back and done again is as it was");
    return true;
}

/// Another program comes to the front for a while.
bool FocusLoss(Stage& stage) {
    stage.Say("");
    stage.eventsElsewhere = stage.dice.Between(1, 4);
    QApplication::setActiveWindow(nullptr);
    return true;
}

bool Resize(Stage& stage) {
    const QSize size(stage.dice.Between(200, 1400), stage.dice.Between(150, 900));
    stage.Say(std::to_string(size.width()) + " x " + std::to_string(size.height()));
    stage.program->resize(stage.dice.OneIn(2) ? QSize(1080, 760) : size);
    return true;
}

bool Meddling(Stage& stage) {
    stage.Say("another program");
    const std::string deed =
        stage.world.Meddle(stage.dice, stage.program->TheProject().constructionFile);
    stage.journal.Reach("files changed by others");
    return !deed.empty();
}

bool Help(Stage& stage) {
    if (HelpWindow() == nullptr)
        return MenuCommand(stage, "HelpMenu", "HelpContents");
    stage.Say("to the viewer");
    stage.usesHelp = true;
    return true;
}

bool Close(Stage& stage) {
    stage.Say("");
    stage.program->close();
    return true;
}

bool EndRequest(Stage& stage) {
    stage.Say("");
    stage.journal.Reach("ended by request");
    stage.sessionEnding = true;
    stage.program->EndByRequest();
    return true;
}

} // namespace

const EventKinds& CommandEvents() {
    static const EventKinds kinds = {{"menu", 8, OpenMenu},
                                     {"new construction", 4, NewConstruction},
                                     {"file command", 5, FileCommand},
                                     {"window command", 2, WindowCommand},
                                     {"glass window", 6, GlassWindow},
                                     {"history", 3, HistoryWalk},
                                     {"focus loss", 1, FocusLoss},
                                     {"resize", 1, Resize},
                                     {"meddling", 1, Meddling},
                                     {"help", 1, Help}};
    return kinds;
}

const EventKinds& EndEvents() {
    static const EventKinds kinds = {{"close", 1, Close}, {"end request", 1, EndRequest}};
    return kinds;
}

} // namespace strativo::monkey
