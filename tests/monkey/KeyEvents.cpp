#include "Stage.h"

#include <QApplication>
#include <QClipboard>

namespace strativo::monkey {

namespace {

constexpr Qt::Key commonKeys[] = {
    Qt::Key_Up,     Qt::Key_Down,    Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Home,
    Qt::Key_End,    Qt::Key_Tab,     Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Escape,
    Qt::Key_Delete, Qt::Key_Insert,  Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Backspace,
    Qt::Key_Space,  Qt::Key_Backtab, Qt::Key_Menu,   Qt::Key_F1,       Qt::Key_F4,
    Qt::Key_F6,     Qt::Key_F10,     Qt::Key_Alt,    Qt::Key_Control,  Qt::Key_Shift};
constexpr Qt::Key repeatedKeys[] = {Qt::Key_Delete, Qt::Key_Return, Qt::Key_Enter,
                                    Qt::Key_Down,   Qt::Key_Up,     Qt::Key_Tab,
                                    Qt::Key_5,      Qt::Key_V,      Qt::Key_Z};

std::string Name(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    return QKeySequence(key | modifiers).toString().toStdString();
}

bool CommonKey(Stage& stage) {
    const Qt::Key key = stage.dice.Pick(commonKeys);
    const Qt::KeyboardModifiers modifiers = AnyModifiers(stage.dice);
    stage.Say(Name(key, modifiers) + " in " + Detail(Describe(QApplication::focusWidget())));
    stage.hands.Key(key, modifiers);
    return true;
}

bool CharacterKey(Stage& stage) {
    const QChar c(stage.dice.Between(' ', '~'));
    const Qt::KeyboardModifiers modifiers = AnyModifiers(stage.dice);
    const auto key = static_cast<Qt::Key>(c.toUpper().unicode());
    stage.Say(Name(key, modifiers) + " in " + Detail(Describe(QApplication::focusWidget())));
    stage.hands.Key(key, modifiers, QString(c));
    return true;
}

/// The window's own keys, and those between windows.
bool CommandKey(Stage& stage) {
    constexpr Qt::Key keys[] = {Qt::Key_X, Qt::Key_C,  Qt::Key_V,  Qt::Key_B,      Qt::Key_V,
                                Qt::Key_B, Qt::Key_F4, Qt::Key_F6, Qt::Key_Insert, Qt::Key_Tab,
                                Qt::Key_A, Qt::Key_Z,  Qt::Key_Z,  Qt::Key_Y};
    const Qt::Key key = stage.dice.Pick(keys);
    const Qt::KeyboardModifiers shift = stage.dice.OneIn(6) ? Qt::ShiftModifier : Qt::NoModifier;
    stage.Say(Name(key, Qt::ControlModifier | shift));
    stage.hands.Key(key, Qt::ControlModifier | shift);
    return true;
}

bool AccessKey(Stage& stage) {
    const auto key = static_cast<Qt::Key>(stage.dice.Between(Qt::Key_A, Qt::Key_Z));
    stage.Say(Name(key, Qt::AltModifier));
    stage.hands.KeyDown(Qt::Key_Alt, {}, {});
    stage.hands.Key(key, Qt::AltModifier, QString(QChar(key)).toLower());
    stage.hands.KeyUp(Qt::Key_Alt, Qt::AltModifier);
    return true;
}

bool HeldKey(Stage& stage) {
    const Qt::Key key = stage.dice.Pick(repeatedKeys);
    const bool isCommand = key == Qt::Key_V || key == Qt::Key_Z;
    const Qt::KeyboardModifiers modifiers = isCommand ? Qt::ControlModifier : Qt::NoModifier;
    const int times = stage.dice.Between(1, 8);
    const bool isReleased = !stage.dice.OneIn(4);
    const QString text = key == Qt::Key_5 ? QStringLiteral("5") : QString();
    stage.Say(Name(key, modifiers) + ' ' + std::to_string(times)
              + (isReleased ? " times" : " times, not released"));
    stage.hands.KeyDown(key, modifiers, text);
    for (int i = 0; i < times; ++i) {
        stage.hands.KeyUp(key, modifiers, true);
        stage.hands.KeyDown(key, modifiers, text, true);
    }
    if (isReleased)
        stage.hands.KeyUp(key, modifiers);
    return true;
}

void EndEntry(Stage& stage) {
    constexpr Qt::Key ends[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Enter,
                                Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Backtab};
    if (!stage.dice.OneIn(6))
        stage.hands.Key(stage.dice.Pick(ends));
}

/// Types a value into one of the fields of the active window.
bool Entry(Stage& stage) {
    constexpr Qt::Key fields[] = {Qt::Key_C, Qt::Key_T, Qt::Key_T, Qt::Key_T, Qt::Key_A};
    const Qt::Key field = stage.dice.Pick(fields);
    const QString text = AnyText(stage.dice);
    stage.Say(Name(field, Qt::AltModifier) + ", then \"" + Detail(text) + '"');
    stage.hands.Key(field, Qt::AltModifier);
    stage.hands.Type(text.left(20));
    EndEntry(stage);
    return true;
}

bool Pasting(Stage& stage) {
    const QString text = AnyText(stage.dice);
    stage.Say('"' + Detail(text) + "\" in " + Detail(Describe(QApplication::focusWidget())));
    QApplication::clipboard()->setText(text);
    stage.hands.Key(Qt::Key_V, Qt::ControlModifier, QString(QChar(22)));
    EndEntry(stage);
    return true;
}

} // namespace

const EventKinds& KeyEvents() {
    static const EventKinds kinds = {{"key", 16, CommonKey},         {"character", 6, CharacterKey},
                                     {"command key", 8, CommandKey}, {"access key", 4, AccessKey},
                                     {"held key", 3, HeldKey},       {"entry", 8, Entry},
                                     {"pasting", 2, Pasting}};
    return kinds;
}

} // namespace strativo::monkey
