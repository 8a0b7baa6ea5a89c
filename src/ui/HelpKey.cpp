#include "ui/HelpKey.h"

#include "ui/KeyRepeat.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace strativo {

HelpKey::HelpKey(std::function<void(const QWidget& window)> showHelp, QObject* parent)
    : QObject(parent), show(std::move(showHelp)) {
    qApp->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()
        || QApplication::activePopupWidget() != nullptr)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier)
        return false;
    const QWidget* window = static_cast<QWidget*>(watched)->window();
    // One that blocks all others would block the help too.
    if (!IsRepeat(key) && window->windowModality() != Qt::ApplicationModal)
        show(*window);
    return true;
}

} // namespace strativo
