#include "Stage.h"

#include <QAbstractButton>
#include <QApplication>

namespace strativo::monkey {

namespace {

QWidget* Viewer() {
    return QApplication::activeWindow();
}

bool HelpKey(Stage& stage) {
    constexpr Qt::Key keys[] = {Qt::Key_Tab,   Qt::Key_Return,   Qt::Key_PageDown, Qt::Key_F3,
                                Qt::Key_Left,  Qt::Key_Right,    Qt::Key_Home,     Qt::Key_Escape,
                                Qt::Key_Slash, Qt::Key_Backspace};
    const Qt::Key key = stage.dice.Pick(keys);
    const Qt::KeyboardModifiers modifiers = AnyModifiers(stage.dice);
    stage.Say(QKeySequence(key | modifiers).toString().toStdString());
    stage.hands.Key(key, modifiers);
    return true;
}

bool HelpSearch(Stage& stage) {
    stage.Say("");
    stage.hands.Key(Qt::Key_F, Qt::ControlModifier);
    stage.hands.Type(stage.dice.OneIn(2) ? QStringLiteral("layer") : AnyText(stage.dice).left(9));
    stage.hands.Key(Qt::Key_Return);
    return true;
}

bool HelpClick(Stage& stage) {
    QWidget* widget = AnySeen(stage.dice, *Viewer());
    if (widget == nullptr)
        return false;
    stage.Say(Detail(Describe(widget)));
    stage.hands.Click(widget, AnyPlace(stage.dice, *widget));
    return true;
}

bool HelpLeft(Stage& stage) {
    const bool closes = stage.dice.OneIn(2);
    stage.Say(closes ? "closed" : "");
    stage.usesHelp = false;
    if (closes)
        Viewer()->close();
    return true;
}

} // namespace

const EventKinds& HelpEvents() {
    static const EventKinds kinds = {{"help key", 4, HelpKey},
                                     {"help search", 1, HelpSearch},
                                     {"help click", 3, HelpClick},
                                     {"help left", 2, HelpLeft}};
    return kinds;
}

} // namespace strativo::monkey
