#include "ui/KeyRepeat.h"

#include "edit/HeldKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

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

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyRelease) {
            const auto& release = *static_cast<QKeyEvent*>(event);
            keys.Released(release.key(), release.timestamp());
        }
        return false;
    }

private:
    HeldKeys keys;
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

} // namespace strativo
