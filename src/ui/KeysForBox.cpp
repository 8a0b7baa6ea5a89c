#include "ui/KeysForBox.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace strativo {

namespace {

const QWidget* WidgetOf(const QWindow* window) {
    const QWidgetList all = QApplication::topLevelWidgets();
    const auto found = std::find_if(all.begin(), all.end(), [window](const QWidget* widget) {
        return widget->windowHandle() == window;
    });
    return found == all.end() ? nullptr : *found;
}

bool BelongsTo(const QWidget* widget, const QWidget* owner) {
    while (widget != nullptr && widget != owner)
        widget = widget->parentWidget();
    return widget != nullptr;
}

} // namespace

KeysForBox::KeysForBox(QWidget* mainWindow) : QObject(mainWindow), window(mainWindow) {
    // Not before the window manager is done with the change.
    connect(qApp, &QGuiApplication::focusWindowChanged, this, &KeysForBox::FollowFocus,
            Qt::QueuedConnection);
}

void KeysForBox::FollowFocus(const QWindow* now) {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr || now == nullptr || now != QGuiApplication::focusWindow())
        return;
    const QWidget* focused = WidgetOf(now);
    if (BelongsTo(focused, window) && !BelongsTo(focused, box))
        box->activateWindow();
}

} // namespace strativo
