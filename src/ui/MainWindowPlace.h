#pragma once

#include <QSize>

class QWidget;

namespace strativo {

/// The size, no larger than what the window's screen has room for.
QSize FittingSize(QSize wanted, const QWidget& window);

/// Gives the main window the size, place and state that it had at its last end, or else its usual
/// size; never larger than what the screen has room for. Before it is shown.
void RestorePlace(QWidget& window);

/// Remembers them for the next start.
void KeepPlace(const QWidget& window);

} // namespace strativo
