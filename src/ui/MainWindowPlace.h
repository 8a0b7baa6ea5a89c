#pragma once

class QWidget;

namespace strativo {

/// Gives the main window the size, place and state that it had at its last end, or else its usual
/// size; never larger than what the screen has room for. Before it is shown.
void RestorePlace(QWidget& window);

/// Remembers them for the next start.
void KeepPlace(const QWidget& window);

} // namespace strativo
