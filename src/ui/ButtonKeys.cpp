#include "ui/ButtonKeys.h"

#include "ui/KeyRepeat.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QShortcutEvent>

namespace strativo {

ButtonKeys::ButtonKeys(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool ButtonKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool isShortcut = event->type() == QEvent::Shortcut;
    if (!isShortcut && event->type() != QEvent::KeyPress)
        return false;
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button == nullptr || !button->isEnabled())
        return false;
    if (!isShortcut)
        return Enter(*button, *static_cast<QKeyEvent*>(event));
    return !static_cast<QShortcutEvent*>(event)->isAmbiguous() && AccessKey(*button);
}

/// False for another key.
bool ButtonKeys::Enter(QAbstractButton& button, const QKeyEvent& key) {
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!enter || !plain)
        return false;
    // The Enter that ended an entry may still be held when a box opens; it must not answer that box
    // before anybody has read it.
    if (!IsRepeat(key))
        button.click();
    return true;
}

bool ButtonKeys::AccessKey(QAbstractButton& button) {
    if (LastPressRepeats())
        return true;
    if (button.isCheckable() && (button.focusPolicy() & Qt::ClickFocus) != 0)
        button.setFocus();
    button.click();
    return true;
}

} // namespace strativo
