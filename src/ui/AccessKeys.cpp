#include "ui/AccessKeys.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace strativo {

namespace {

QKeyCombination KeyOf(const QString& caption) {
    const QKeySequence sequence = QKeySequence::mnemonic(caption);
    return sequence.isEmpty() ? QKeyCombination() : sequence[0];
}

bool CanTakeIt(const QWidget* control) {
    return control != nullptr && control->isEnabled() && control->isVisible();
}

void UseControl(QWidget* control) {
    control->setFocus(Qt::ShortcutFocusReason);
    if (auto* button = qobject_cast<QAbstractButton*>(control))
        button->click();
}

} // namespace

AccessKeys::AccessKeys(std::function<QWidget*()> content, QMenuBar& menuBar, QObject* parent)
    : QObject(parent), activeContent(std::move(content)), menus(menuBar) {
    qApp->installEventFilter(this);
}

bool AccessKeys::IsAccessKey(const QObject* watched, const QKeyEvent& event) const {
    const bool letter = event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
    return letter && event.modifiers() == Qt::AltModifier && watched->isWidgetType()
           && static_cast<const QWidget*>(watched)->window() == menus.window()
           && QApplication::activeModalWidget() == nullptr
           && QApplication::activePopupWidget() == nullptr;
}

QWidget* AccessKeys::ControlFor(QKeyCombination wanted) const {
    const QWidget* content = activeContent();
    if (content == nullptr)
        return nullptr;
    for (QAbstractButton* button : content->findChildren<QAbstractButton*>())
        if (KeyOf(button->text()) == wanted && CanTakeIt(button))
            return button;
    for (const QLabel* label : content->findChildren<QLabel*>())
        if (label->isVisible() && CanTakeIt(label->buddy()) && KeyOf(label->text()) == wanted)
            return label->buddy();
    return nullptr;
}

void AccessKeys::OpenMenu(QKeyCombination wanted) {
    for (QAction* action : menus.actions()) {
        if (KeyOf(action->text()) != wanted)
            continue;
        menus.setActiveAction(action);
        const QList<QAction*> items = action->menu()->actions();
        const auto first = std::find_if(items.begin(), items.end(), [](const QAction* item) {
            return item->isEnabled() && !item->isSeparator();
        });
        if (first != items.end())
            action->menu()->setActiveAction(*first);
        return;
    }
}

/// Qt would only close the menu and leave the keyboard with the menu bar.
bool AccessKeys::LeaveMenu(QObject* watched, const QKeyEvent& event) {
    auto* menu = qobject_cast<QMenu*>(watched);
    if (menu == nullptr || event.key() != Qt::Key_Escape || menu->parentWidget() != &menus)
        return false;
    menu->close();
    QKeyEvent leave(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    if (menus.hasFocus())
        QCoreApplication::sendEvent(&menus, &leave);
    menus.setActiveAction(nullptr);
    return true;
}

bool AccessKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool asks = event->type() == QEvent::ShortcutOverride;
    if (!asks && event->type() != QEvent::KeyPress)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (!asks && LeaveMenu(watched, key))
        return true;
    if (!IsAccessKey(watched, key))
        return false;
    const QKeyCombination wanted(Qt::AltModifier, static_cast<Qt::Key>(key.key()));
    if (asks)
        event->accept(); // keeps Qt from choosing among all controls of that letter
    else if (QWidget* control = ControlFor(wanted))
        UseControl(control);
    else
        OpenMenu(wanted);
    return true;
}

} // namespace strativo
