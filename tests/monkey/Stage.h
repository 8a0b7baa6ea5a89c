#pragma once

#include "Dice.h"
#include "Hands.h"
#include "Journal.h"
#include "World.h"
#include "ui/STRATVMD.h"

#include <string>
#include <vector>

namespace strativo {
class ChildWindow;
class LayerList;
class MaterialList;
} // namespace strativo

namespace strativo::monkey {

/// What an event needs to happen.
struct Stage {
    Dice dice;
    Journal& journal;
    World& world;
    Hands hands;
    UValueMDI* program = nullptr;
    const char* kind = "";      ///< of the event that is being made
    bool usesHelp = false;      ///< the keyboard belongs to the help viewer
    int eventsElsewhere = 0;    ///< for so many events another program has the keyboard
    bool sessionEnding = false; ///< the program was asked to end, or ended by itself
    int lastFileDrop = -1000;   ///< the event with which a file was dropped

    /// Announces the event before it happens.
    void Say(const std::string& detail) { journal.Event(kind, detail); }
};

/// A kind of event, how often it is to come, and what makes one; false when there can be none now.
struct EventKind {
    const char* name;
    int weight;
    bool (*act)(Stage&);
};
using EventKinds = std::vector<EventKind>;

const EventKinds& KeyEvents();
const EventKinds& MouseEvents();
const EventKinds& DragEvents();
const EventKinds& CommandEvents();
const EventKinds& EndEvents();
/// What can happen while another program has the keyboard.
const EventKinds& AwayEvents();
const EventKinds& PopupEvents();
const EventKinds& BoxEvents();
const EventKinds& PromptEvents();
const EventKinds& EditorEvents();
const EventKinds& HelpEvents();

/// States that a run of some length must have come to.
const std::vector<std::string>& WantedStates();

// What there is to be used.

/// Everything of a class that can be seen in a window.
template <class Widget = QWidget>
std::vector<Widget*> Seen(const QWidget& window) {
    std::vector<Widget*> seen;
    for (Widget* widget : window.findChildren<Widget*>())
        if (widget->isVisible() && !widget->isWindow() && widget->window() == window.window())
            seen.push_back(widget);
    return seen;
}

/// One of them, or null.
template <class Widget = QWidget>
Widget* AnySeen(Dice& dice, const QWidget& window) {
    const std::vector<Widget*> seen = Seen<Widget>(window);
    return seen.empty() ? nullptr : dice.Pick(seen);
}

/// The help viewer while it can be seen, else null.
QWidget* HelpWindow();
QPoint AnyPlace(Dice& dice, const QWidget& on);
Qt::KeyboardModifiers AnyModifiers(Dice& dice);
/// A text as somebody might type or paste it: a number, a name, or neither.
QString AnyText(Dice& dice);
QString Describe(const QWidget* widget);
std::string Detail(const QString& text);

} // namespace strativo::monkey
