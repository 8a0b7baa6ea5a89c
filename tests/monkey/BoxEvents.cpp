#include "Stage.h"
#include "fuzz/Invariants.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

namespace strativo::monkey {

namespace {

using fuzz::Require;

QDialog* Box() {
    return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

/// The answers are shown as they should be; what a user is told is no failure inside the program.
void Look(Stage& stage, const QDialog& box) {
    const auto* text = box.findChild<QLabel*>(QStringLiteral("MessageText"));
    if (text == nullptr)
        return;
    Require(!box.windowTitle().isEmpty(), "a box has a title");
    for (const char* inside : {"::", "_M_", "bad_alloc", "basic_string", "vector", "std::"})
        Require(!text->text().contains(QLatin1String(inside)), "messages are meant for users");
    const auto buttons = box.findChildren<QAbstractButton*>();
    stage.journal.Reach(buttons.size() > 1 ? "questions answered" : "messages read");
    stage.journal.Reach("box \"" + Detail(box.windowTitle()) + '"');
}

std::string Title(const QDialog& box) {
    const auto* text = box.findChild<QLabel*>(QStringLiteral("MessageText"));
    return Detail(text != nullptr ? text->text() : box.windowTitle());
}

bool BoxButton(Stage& stage) {
    QDialog* box = Box();
    auto* button = AnySeen<QAbstractButton>(stage.dice, *box);
    if (button == nullptr)
        return false;
    Look(stage, *box);
    stage.Say(Detail(button->text()) + " to " + Title(*box));
    stage.hands.Click(button, button->rect().center());
    return true;
}

bool BoxKey(Stage& stage) {
    constexpr Qt::Key keys[] = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space,
                                Qt::Key_Tab,    Qt::Key_Left,  Qt::Key_Right,  Qt::Key_Down,
                                Qt::Key_Up,     Qt::Key_Delete};
    const Qt::Key key = stage.dice.Pick(keys);
    Look(stage, *Box());
    stage.Say(QKeySequence(key).toString().toStdString() + " to " + Title(*Box()));
    stage.hands.Key(key);
    return true;
}

bool BoxLetter(Stage& stage) {
    constexpr char letters[] = {'y', 'n', 'o', 'c', 'f', 'x', '1'};
    const QChar letter = QLatin1Char(stage.dice.Pick(letters));
    const Qt::KeyboardModifiers modifiers = stage.dice.OneIn(3) ? Qt::NoModifier : Qt::AltModifier;
    Look(stage, *Box());
    stage.Say(Detail(letter) + " to " + Title(*Box()));
    stage.hands.Key(static_cast<Qt::Key>(letter.toUpper().unicode()), modifiers, letter);
    return true;
}

bool BoxClose(Stage& stage) {
    Look(stage, *Box());
    stage.Say("of " + Title(*Box()));
    Box()->close();
    return true;
}

bool BoxClick(Stage& stage) {
    QDialog* box = Box();
    QWidget* widget = AnySeen(stage.dice, *box);
    if (widget == nullptr)
        return false;
    constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::RightButton};
    const QPoint place = AnyPlace(stage.dice, *widget);
    stage.Say(Detail(Describe(widget)));
    stage.hands.Click(widget, place, {}, stage.dice.Pick(buttons));
    return true;
}

/// What lies behind a box is out of reach.
bool BehindBox(Stage& stage) {
    QDialog* box = Box();
    stage.Say("");
    stage.hands.Click(stage.program, AnyPlace(stage.dice, *stage.program));
    QMimeData data;
    data.setUrls(
        {QUrl::fromLocalFile(QString::fromStdString(stage.world.AnyConstructionFile(stage.dice)))});
    if (stage.hands.DragOver(stage.program, AnyPlace(stage.dice, *stage.program), data))
        Require(!stage.hands.Drop(data), "no file can be dropped behind a box");
    stage.hands.AbandonDrag();
    Require(QApplication::activeModalWidget() == box, "a box stays while others are used");
    return true;
}

} // namespace

const EventKinds& BoxEvents() {
    static const EventKinds kinds = {{"box button", 10, BoxButton}, {"box key", 5, BoxKey},
                                     {"box letter", 3, BoxLetter},  {"box close", 2, BoxClose},
                                     {"box click", 1, BoxClick},    {"behind box", 1, BehindBox}};
    return kinds;
}

} // namespace strativo::monkey
