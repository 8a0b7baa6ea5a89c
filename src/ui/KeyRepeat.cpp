#include "ui/KeyRepeat.h"

#include "edit/HeldKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcut>

namespace strativo {

namespace {

/// Sees every release before the control that it is meant for: a key held down may go on repeating
/// in a box that it opened.
class KeyWatch : public QObject {
public:
    explicit KeyWatch(QCoreApplication* program) : QObject(program) {
        program->installEventFilter(this);
    }

    bool IsRepeat(const QKeyEvent& press) const {
        return keys.IsRepeat(press.key(), press.timestamp(), press.isAutoRepeat());
    }

    bool LastRepeats() const { return lastRepeats; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        // Comes before a press, and before the shortcuts look at it.
        if (event->type() == QEvent::ShortcutOverride)
            lastRepeats = IsRepeat(*static_cast<QKeyEvent*>(event));
        if (event->type() == QEvent::KeyRelease) {
            const auto& release = *static_cast<QKeyEvent*>(event);
            keys.Released(release.key(), release.timestamp());
        }
        return false;
    }

private:
    HeldKeys keys;
    bool lastRepeats = false;
};

KeyWatch& Watch() {
    static QPointer<KeyWatch> watch;
    if (watch.isNull())
        watch = new KeyWatch(QCoreApplication::instance());
    return *watch;
}

} // namespace

void WatchKeys() {
    Watch();
}

bool IsRepeat(const QKeyEvent& press) {
    return Watch().IsRepeat(press);
}

bool LastPressRepeats() {
    return Watch().LastRepeats();
}

void ActOncePerPress(QShortcut* shortcut, const std::function<void()>& action) {
    QObject::connect(shortcut, &QShortcut::activated, shortcut, [action] {
        if (!LastPressRepeats())
            action();
    });
}

} // namespace strativo
