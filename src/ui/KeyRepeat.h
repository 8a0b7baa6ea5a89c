#pragma once

#include <functional>

class QKeyEvent;
class QShortcut;

namespace strativo {

/// Starts watching the keys of all the program's windows.
void WatchKeys();

/// Whether the press only repeats a key held down, in whatever window it was first pressed.
bool IsRepeat(const QKeyEvent& press);

/// The same for the press that a shortcut has just taken.
bool LastPressRepeats();

/// Lets the shortcut do the action once a press, however long its keys are held.
void ActOncePerPress(QShortcut* shortcut, const std::function<void()>& action);

} // namespace strativo
