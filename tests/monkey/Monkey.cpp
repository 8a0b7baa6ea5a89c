#include "Monkey.h"

#include "WindowChecks.h"
#include "fuzz/Invariants.h"
#include "ui/WINPRO.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QTimer>

#include <iostream>
#include <numeric>

namespace strativo::monkey {

namespace {

using fuzz::Require;

constexpr int deepest = 12;          // boxes upon boxes
constexpr int rarelyEnds = 500;      // events between two ends of the program
constexpr int windingDown = 100'000; // looks until everything must have closed

EventKinds Joined(const std::vector<const EventKinds*>& parts) {
    EventKinds all;
    for (const EventKinds* part : parts)
        all.insert(all.end(), part->begin(), part->end());
    return all;
}

const EventKinds& MainEvents() {
    static const EventKinds all =
        Joined({&KeyEvents(), &MouseEvents(), &DragEvents(), &CommandEvents()});
    return all;
}

int TotalWeight(const EventKinds& kinds) {
    return std::accumulate(kinds.begin(), kinds.end(), 0,
                           [](int sum, const EventKind& kind) { return sum + kind.weight; });
}

const EventKind& Pick(Dice& dice, const EventKinds& kinds) {
    int at = dice.Below(TotalWeight(kinds));
    for (const EventKind& kind : kinds) {
        at -= kind.weight;
        if (at < 0)
            return kind;
    }
    return kinds.front();
}

} // namespace

Monkey::Monkey(unsigned seed, int events, Journal& journal, EditLog* log)
    : wantedEvents(events), editLog(log), stage{Dice(seed), journal, world, {}} {}

void Monkey::Run() {
    QTimer::singleShot(0, this, &Monkey::Step);
    while (stage.journal.Events() < wantedEvents)
        Sit();
}

void Monkey::Sit() {
    world.Prepare(stage.dice);
    stage.journal.Reach("sessions begun");
    stage.usesHelp = false;
    stage.eventsElsewhere = 0;
    stage.sessionEnding = false;
    program = std::make_unique<UValueMDI>();
    stage.program = program.get();
    WatchMenus(*program, stage.journal);
    ++depth;
    program->MDIForm_Load(stage.dice.OneIn(3) ? world.AnyPath(stage.dice) : "");
    --depth;
    if (!program->HasEnded())
        QApplication::exec();
    CheckEnd();
    if (editLog != nullptr)
        editLog->Note(0, false);
    stage.program = nullptr;
    program.reset();
    // Ending the program stops every further event loop until the next start.
    QTimer::singleShot(0, qApp, [] { QApplication::exit(0); });
    QApplication::exec();
}

void Monkey::Step() {
    QTimer::singleShot(0, this, &Monkey::Step);
    if (program == nullptr || program->HasEnded() || !IsReady())
        return;
    waiting = 0;
    ++depth;
    try {
        Require(depth < deepest, "boxes do not pile up");
        Check();
        if (stage.journal.Events() < wantedEvents)
            Act();
        else
            WindDown();
    } catch (const fuzz::BrokenPromise& broken) {
        std::cerr << WhereThingsAre(*program) << '\n';
        stage.journal.Fail(broken.what());
    } catch (const std::exception& error) {
        stage.journal.Fail(error.what());
    }
    --depth;
}

/// The events that are possible now.
const EventKinds* Monkey::Kinds() {
    QWidget* modal = QApplication::activeModalWidget();
    if (QApplication::activePopupWidget() != nullptr)
        return &PopupEvents();
    if (qobject_cast<QFileDialog*>(modal) != nullptr)
        return &PromptEvents();
    if (qobject_cast<Profile*>(modal) != nullptr)
        return &EditorEvents();
    if (modal != nullptr)
        return &BoxEvents();
    if (stage.eventsElsewhere > 0)
        return &AwayEvents();
    if (stage.usesHelp)
        return &HelpEvents();
    return stage.dice.OneIn(rarelyEnds) ? &EndEvents() : &MainEvents();
}

void Monkey::Act() {
    const EventKinds* kinds = Kinds();
    if (kinds == &AwayEvents())
        --stage.eventsElsewhere;
    const int before = stage.journal.Events();
    for (int tries = 0; tries < 100 && stage.journal.Events() == before; ++tries) {
        const EventKind& kind = Pick(stage.dice, *kinds);
        stage.kind = kind.name;
        if (kind.act(stage))
            return;
    }
    Require(stage.journal.Events() != before, "there is always something that a user can do");
}

/// Closes what is open, from the top down, and then leaves the event loop.
void Monkey::WindDown() {
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        box->reject();
    } else {
        stage.sessionEnding = true;
        QApplication::exit(0);
    }
}

/// A button clicked by its key stays pressed for a moment.
bool Monkey::IsButtonDown() {
    const QWidget* window = QApplication::activeWindow();
    if (window == nullptr)
        return false;
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>())
        if (button->isDown())
            return true;
    return false;
}

/// Without a window manager nobody else gives the keyboard to the window in front.
bool Monkey::HasKeyboard(QWidget& wanted) {
    if (QApplication::activeWindow() == &wanted && QGuiApplication::focusWindow() != nullptr)
        return true;
    if (QGuiApplication::focusWindow() == wanted.windowHandle())
        QApplication::setActiveWindow(&wanted); // back from another program
    wanted.activateWindow();
    return false;
}

bool Monkey::IsReady() {
    constexpr int patience = 1000;
    ++waiting;
    Require(stage.journal.Events() < wantedEvents || waiting < windingDown,
            "everything can be closed");
    if (!program->isVisible())
        return false; // closed, or not there yet
    if (waiting < patience && IsButtonDown())
        return false;
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr && stage.eventsElsewhere > 0)
        return true;
    QWidget* help = HelpWindow();
    stage.usesHelp = stage.usesHelp && help != nullptr;
    if (QApplication::activePopupWidget() != nullptr)
        return true;
    QWidget* front = stage.usesHelp ? help : program.get();
    return HasKeyboard(modal != nullptr ? *modal : *front);
}

} // namespace strativo::monkey
