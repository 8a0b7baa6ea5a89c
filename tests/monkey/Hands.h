#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <chrono>

class QMimeData;

namespace strativo::monkey {

/// Keyboard and mouse as the window system would deliver them: to windows, by way of the toolkit's
/// own choice of the control. Nothing waits; what an event opens is left open.
class Hands {
public:
    /// Presses and releases a key in the window that has the keyboard; nowhere if none has.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
    void KeyDown(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text,
                 bool repeated = false);
    void KeyUp(Qt::Key key, Qt::KeyboardModifiers modifiers, bool repeated = false);
    /// One key after the other; it goes on where the focus is by then.
    void Type(const QString& text);

    void Press(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton);
    /// Moves the mouse, with the button held that was pressed last.
    void Move(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers = {});
    void Release(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers = {});
    void Click(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton);
    void DoubleClick(QWidget* on, QPoint place, Qt::KeyboardModifiers modifiers = {});
    void Wheel(QWidget* on, QPoint place, int steps);
    bool IsHolding() const { return held != Qt::NoButton; }

    /// Moves data over a window, as a drag does; what is under it is told. False where it is not
    /// welcome.
    bool DragOver(QWidget* window, QPoint place, const QMimeData& data);
    /// Lets go where the drag was last, if it is welcome there, or takes it back.
    bool Drop(const QMimeData& data);
    void AbandonDrag();

private:
    void Mouse(QWidget* on, QPoint place, QEvent::Type type, Qt::MouseButton button,
               Qt::KeyboardModifiers modifiers);

    Qt::Key keyLetGo = Qt::Key_unknown;
    std::chrono::steady_clock::time_point letGoAt;
    Qt::MouseButton held = Qt::NoButton;
    int time = 100'000; ///< ms; clicks that are to be two lie far apart
    QPointer<QWidget> dragTarget;
    QPoint dragPlace;
    bool isWelcome = false; ///< where the drag was last
};

} // namespace strativo::monkey
