#pragma once

#include "desktop/Gui.h"

#include <QPoint>

#include <chrono>
#include <initializer_list>

namespace strativo {

/// A user's hands on the screen's real pointer and keyboard. When a call returns the windows have
/// dealt with what was done.
class User {
public:
    void MoveTo(QPoint place);
    void Click(QPoint place, int button = leftButton);
    void DoubleClick(QPoint place);
    /// Presses the left button and moves, without letting go.
    void PressAndMove(QPoint from, QPoint to);
    /// Presses the left button where the pointer is.
    void Grip() { PressButton(leftButton); }
    void Release();
    void Drag(QPoint from, QPoint to);
    /// Turns the wheel by one notch, towards the user or away.
    void TurnWheel(bool towards);

    void Hold(Key key);
    void LetGo(Key key);
    /// Holds a key so long, while it repeats as the screen's keyboard does.
    void HoldFor(Key key, std::chrono::milliseconds time);
    /// Presses and releases a key while the others before it are held.
    void Press(std::initializer_list<Key> keys);
    void Press(Key key) { Press({key}); }
    /// Types UTF-8 text.
    void Type(const std::string& text);

    static constexpr int leftButton = 1;
    static constexpr int rightButton = 3;

private:
    void PressButton(int button);
};

} // namespace strativo
