#include "ui/MainWindowPlace.h"

#include "project/UserFolders.h"
#include "project/WindowState.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace strativo {

namespace {

constexpr QSize usualSize(1080, 760);
// What a window manager typically puts around a window; the real frame is known only once the
// window is shown.
constexpr QSize usualFrame(8, 40);

/// The room that the window itself can take on the screen at that point, or else on the main
/// screen.
ScreenArea AvailableAt(QPoint point) {
    const QScreen* screen = QGuiApplication::screenAt(point);
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    return {available.x(), available.y(), available.width() - usualFrame.width(),
            available.height() - usualFrame.height()};
}

} // namespace

QSize FittingSize(QSize wanted, const QWidget& window) {
    const ScreenArea available = AvailableAt(window.pos());
    return wanted.boundedTo({available.width, available.height});
}

void RestorePlace(QWidget& window) {
    const auto remembered = ReadWindowState(StateFolder());
    if (!remembered) {
        window.resize(FittingSize(usualSize, window));
        return;
    }
    const ScreenArea& last = remembered->place;
    const QPoint middle(last.x + last.width / 2, last.y + last.height / 2);
    const ScreenArea place = FitInto(last, AvailableAt(middle));
    window.resize(place.width, place.height);
    window.move(place.x, place.y);
    window.setWindowState(remembered->maximised ? Qt::WindowMaximized : Qt::WindowNoState);
}

void KeepPlace(const QWidget& window) {
    if (!window.isVisible())
        return;
    // The size is without the window manager's frame, but the position includes it.
    const bool isNormal = !window.isMaximized() && !window.isMinimized() && !window.isFullScreen();
    const QRect normal = window.normalGeometry();
    const QPoint position = isNormal ? window.pos() : normal.topLeft();
    const QSize size = isNormal ? window.size() : normal.size();
    KeepWindowState(
        {{position.x(), position.y(), size.width(), size.height()}, window.isMaximized()},
        StateFolder());
}

} // namespace strativo
