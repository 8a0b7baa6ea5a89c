#include "ui/EnterKey.h"

#include "ui/KeyRepeat.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>

namespace strativo {

EnterKey::EnterKey(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool EnterKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    auto* button = qobject_cast<QAbstractButton*>(watched);
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    const bool plain = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!enter || !plain || button == nullptr || !button->isEnabled())
        return false;
    // The Enter that ended an entry may still be held when a box opens; it must not answer that box
    // before anybody has read it.
    if (!IsRepeat(key))
        button->click();
    return true;
}

} // namespace strativo
