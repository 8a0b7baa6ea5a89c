#include "ui/AccessKeys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>

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

AccessKeys::AccessKeys(std::function<QWidget*()> content, QObject* parent)
    : QObject(parent), activeContent(std::move(content)) {
    qApp->installEventFilter(this);
}

QWidget* AccessKeys::ControlFor(QEvent* event) const {
    const auto* key = static_cast<QKeyEvent*>(event);
    QWidget* content = activeContent();
    if (content == nullptr || key->modifiers() != Qt::AltModifier
        || QApplication::activeModalWidget() != nullptr
        || QApplication::activePopupWidget() != nullptr)
        return nullptr;
    const QKeyCombination wanted(Qt::AltModifier, static_cast<Qt::Key>(key->key()));
    for (const QAbstractButton* button : content->findChildren<QAbstractButton*>())
        if (KeyOf(button->text()) == wanted && CanTakeIt(button))
            return const_cast<QAbstractButton*>(button);
    for (const QLabel* label : content->findChildren<QLabel*>())
        if (label->isVisible() && CanTakeIt(label->buddy()) && KeyOf(label->text()) == wanted)
            return label->buddy();
    return nullptr;
}

bool AccessKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool asks = event->type() == QEvent::ShortcutOverride;
    if (!asks && event->type() != QEvent::KeyPress)
        return false;
    if (!watched->isWidgetType() || static_cast<QKeyEvent*>(event)->modifiers() != Qt::AltModifier)
        return false;
    QWidget* control = ControlFor(event);
    if (control == nullptr)
        return false;
    if (asks)
        event->accept(); // keeps the menu bar from taking it as a shortcut
    else
        UseControl(control);
    return true;
}

} // namespace strativo
