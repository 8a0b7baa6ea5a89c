#pragma once

class QKeyEvent;

namespace strativo {

/// Starts watching the keys of all the program's windows.
void WatchKeys();

/// Whether the press only repeats a key held down, in whatever window it was first pressed.
bool IsRepeat(const QKeyEvent& press);

} // namespace strativo
