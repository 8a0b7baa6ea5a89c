#include "desktop/User.h"

#include <QApplication>
#include <QWidget>

#include <thread>

namespace strativo {

namespace {

constexpr int wheelAway = 4;
constexpr int wheelTowards = 5;

} // namespace

void User::MoveTo(QPoint place) {
    Screen().MovePointer(place.x(), place.y());
    WaitForInput();
    WaitFor("the tool tip under the pointer to go", [place] {
        const QWidget* widget = QApplication::widgetAt(place);
        return widget == nullptr || !widget->inherits("QTipLabel");
    });
}

void User::PressButton(int button) {
    Screen().PressButton(button);
    WaitForInput();
}

void User::Click(QPoint place, int button) {
    MoveTo(place);
    PressButton(button);
    Screen().ReleaseButton(button);
    WaitForInput();
}

/// Two clicks must mean the same however long a slow machine takes for them.
void User::DoubleClick(QPoint place) {
    InGui([] { QApplication::setDoubleClickInterval(1'000'000); });
    Click(place);
    Click(place);
    InGui([] { QApplication::setDoubleClickInterval(0); });
}

void User::PressAndMove(QPoint from, QPoint to) {
    constexpr int steps = 8;
    MoveTo(from);
    PressButton(leftButton);
    for (int step = 1; step <= steps; ++step)
        MoveTo(from + (to - from) * step / steps);
}

void User::Release() {
    Screen().ReleaseButton(leftButton);
    WaitForInput();
}

void User::Drag(QPoint from, QPoint to) {
    PressAndMove(from, to);
    Release();
}

void User::TurnWheel(bool towards) {
    const int button = towards ? wheelTowards : wheelAway;
    Screen().PressButton(button);
    Screen().ReleaseButton(button);
    WaitForInput();
}

void User::Hold(Key key) {
    Screen().PressKey(key);
    WaitForInput();
}

void User::LetGo(Key key) {
    Screen().ReleaseKey(key);
    WaitForInput();
}

void User::Press(std::initializer_list<Key> keys) {
    const Key* const last = keys.end() - 1;
    for (const Key* key = keys.begin(); key != last; ++key)
        Hold(*key);
    Screen().TapKey(*last);
    WaitForInput();
    for (const Key* key = last; key != keys.begin();)
        LetGo(*--key);
}

void User::HoldFor(Key key, std::chrono::milliseconds time) {
    Screen().PressKey(key);
    std::this_thread::sleep_for(time);
    LetGo(key);
}

void User::Type(const std::string& text) {
    Screen().Type(QString::fromStdString(text).toStdU32String());
    WaitForInput();
}

} // namespace strativo
