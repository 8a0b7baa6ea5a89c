#pragma once

class QKeyEvent;

namespace strativo {

/// Watches the keys of all the program's windows from now on.
void WatchKeys();

/// Whether the press only repeats a key that is held down, in whatever window it went down.
bool IsRepeat(const QKeyEvent& press);

} // namespace strativo
