#pragma once

#include <QSize>

class QWidget;

namespace strativo {

/// The size, limited to the room on the window's screen.
QSize FittingSize(QSize wanted, const QWidget& window);

/// Gives the main window the size, place and state that it had when the program last ended, or else
/// its usual size, limited to the room on the screen. To be called before it is shown.
void RestorePlace(QWidget& window);

/// Stores them for the next start.
void KeepPlace(const QWidget& window);

} // namespace strativo
