#include "Stage.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>

namespace strativo::monkey {

namespace {

constexpr Qt::Key keys[] = {Qt::Key_Down,  Qt::Key_Down,   Qt::Key_Up,     Qt::Key_Left,
                            Qt::Key_Right, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,
                            Qt::Key_Home,  Qt::Key_F10,    Qt::Key_Space};

bool MenuItem(Stage& stage) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr || menu->actions().isEmpty())
        return false;
    QAction* item = stage.dice.Pick(menu->actions());
    const bool ends = item->objectName() == QLatin1String("QuitProg");
    // A user ends the program now and then only; disabled items and separators are chosen too.
    if (ends && !stage.dice.OneIn(3))
        return false;
    stage.Say(Detail(item->text()));
    stage.hands.Click(menu, menu->actionGeometry(item).center());
    return true;
}

bool PopupLine(Stage& stage) {
    QWidget* popup = QApplication::activePopupWidget();
    auto* list = popup->findChild<QAbstractItemView*>();
    if (list == nullptr)
        return false;
    const QPoint place = AnyPlace(stage.dice, *list->viewport());
    stage.Say(std::to_string(place.y()));
    stage.hands.Click(list->viewport(), place);
    return true;
}

bool PopupKey(Stage& stage) {
    const Qt::Key key = stage.dice.Pick(keys);
    stage.Say(QKeySequence(key).toString().toStdString());
    stage.hands.Key(key);
    return true;
}

bool PopupLetter(Stage& stage) {
    const QChar letter(stage.dice.Between('a', 'z'));
    stage.Say(Detail(letter));
    stage.hands.Key(static_cast<Qt::Key>(letter.toUpper().unicode()),
                    stage.dice.OneIn(2) ? Qt::AltModifier : Qt::NoModifier, letter);
    return true;
}

bool Beside(Stage& stage) {
    stage.Say("");
    stage.hands.Click(stage.program, AnyPlace(stage.dice, *stage.program));
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    return true;
}

} // namespace

const EventKinds& PopupEvents() {
    static const EventKinds kinds = {{"menu item", 10, MenuItem},
                                     {"popup line", 3, PopupLine},
                                     {"popup key", 5, PopupKey},
                                     {"popup letter", 1, PopupLetter},
                                     {"beside popup", 1, Beside}};
    return kinds;
}

} // namespace strativo::monkey
