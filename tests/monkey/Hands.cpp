#include "Hands.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QWheelEvent>
#include <QWindow>

#include <thread>

// The toolkit's own entries for tests, which hand events to a window at once.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers modifiers, const QString& text,
                                    bool repeated, ushort count);
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers modifiers,
                                      int timestamp);
QT_END_NAMESPACE

namespace strativo::monkey {

namespace {

constexpr int apart = 1000; // ms, more than a double click may take
constexpr Qt::DropActions anyAction = Qt::CopyAction | Qt::MoveAction;

QWidget* Acceptor(QWidget* widget) {
    while (widget != nullptr && !widget->acceptDrops())
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    return widget;
}

/// Null while another program has it.
QWindow* WindowWithKeyboard() {
    return QApplication::activeWindow() != nullptr ? QGuiApplication::focusWindow() : nullptr;
}

} // namespace

void Hands::KeyDown(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text,
                    bool repeated) {
    // Within the toolkit's millisecond, a press of the key just let go counts as its repeat.
    if (!repeated && key == keyLetGo)
        std::this_thread::sleep_until(letGoAt + std::chrono::milliseconds(1));
    if (QWindow* window = WindowWithKeyboard())
        qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text, repeated, 1);
}

void Hands::KeyUp(Qt::Key key, Qt::KeyboardModifiers modifiers, bool repeated) {
    if (QWindow* window = WindowWithKeyboard())
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, {}, repeated, 1);
    keyLetGo = key;
    letGoAt = std::chrono::steady_clock::now();
}

void Hands::Key(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
    KeyDown(key, modifiers, text);
    KeyUp(key, modifiers);
}

void Hands::Type(const QString& text) {
    for (const QChar c : text)
        Key(static_cast<Qt::Key>(c.toUpper().unicode()), {}, QString(c));
}

void Hands::Mouse(QWidget* on, QPoint place, QEvent::Type type, Qt::MouseButton button,
                  Qt::KeyboardModifiers modifiers) {
    QWindow* window = on->window()->windowHandle();
    if (window == nullptr)
        return;
    const QPoint local = on->mapTo(on->window(), place);
    qt_handleMouseEvent(window, local, window->mapToGlobal(local), held, button, type, modifiers,
                        time);
}

void Hands::Press(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers,
                  Qt::MouseButton button) {
    time += apart;
    held = button;
    Mouse(on, place, QEvent::MouseButtonPress, button, modifiers);
}

void Hands::Move(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers) {
    Mouse(on, place, QEvent::MouseMove, Qt::NoButton, modifiers);
}

void Hands::Release(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers) {
    const Qt::MouseButton button = held;
    held = Qt::NoButton;
    Mouse(on, place, QEvent::MouseButtonRelease, button, modifiers);
}

void Hands::Click(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers,
                  Qt::MouseButton button) {
    const QPointer<QWidget> target(on);
    Move(on, place, modifiers);
    Press(on, place, modifiers, button);
    if (target != nullptr && held == button)
        Release(on, place, modifiers);
    held = Qt::NoButton;
}

void Hands::DoubleClick(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers) {
    const QPointer<QWidget> target(on);
    Click(on, place, modifiers);
    if (target == nullptr)
        return;
    time -= apart; // the second press follows at once
    Click(on, place, modifiers);
}

void Hands::Wheel(QWidget* on, QPoint place, int steps) {
    constexpr int step = 120;
    QWheelEvent event(place, on->mapToGlobal(place), {}, QPoint(0, steps * step), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(on, &event);
}

bool Hands::DragOver(QWidget* window, QPoint place, const QMimeData& data) {
    const QPointer<QWidget> before = dragTarget;
    QWidget* under = window->childAt(place);
    QWidget* target = Acceptor(under != nullptr ? under : window);
    while (target != nullptr && target != before) {
        QDragEnterEvent enter(target->mapFrom(window, place), anyAction, &data, Qt::LeftButton, {});
        if (QApplication::sendEvent(target, &enter) && enter.isAccepted())
            break;
        target = Acceptor(target->parentWidget());
    }
    if (before != nullptr && before != target)
        AbandonDrag();
    dragTarget = target;
    if (target == nullptr)
        return false;
    dragPlace = target->mapFrom(window, place);
    QDragMoveEvent move(dragPlace, anyAction, &data, Qt::LeftButton, {});
    move.accept(); // as the toolkit does after a welcome
    QApplication::sendEvent(target, &move);
    isWelcome = move.isAccepted();
    return isWelcome;
}

bool Hands::Drop(const QMimeData& data) {
    if (!isWelcome)
        AbandonDrag();
    const QPointer<QWidget> target = dragTarget;
    dragTarget = nullptr;
    if (target == nullptr)
        return false;
    QDropEvent drop(dragPlace, anyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &drop);
    // A file is read after its drop was answered.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    return drop.isAccepted();
}

void Hands::AbandonDrag() {
    if (dragTarget == nullptr)
        return;
    QDragLeaveEvent leave;
    QApplication::sendEvent(dragTarget, &leave);
    dragTarget = nullptr;
}

} // namespace strativo::monkey
