#include "Stage.h"
#include "ui/ChildWindow.h"
#include "ui/LayerList.h"
#include "ui/MaterialList.h"
#include "ui/WindowArea.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace strativo::monkey {

namespace {

constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,
                                       Qt::RightButton, Qt::MiddleButton};

std::string At(const QWidget& widget, QPoint place) {
    return Detail(
        QStringLiteral("%1 at %2,%3").arg(Describe(&widget)).arg(place.x()).arg(place.y()));
}

bool Click(Stage& stage) {
    QWidget* widget = AnySeen(stage.dice, *stage.program);
    const QPoint place = AnyPlace(stage.dice, *widget);
    const Qt::MouseButton button = stage.dice.Pick(buttons);
    const Qt::KeyboardModifiers modifiers = AnyModifiers(stage.dice);
    stage.Say(At(*widget, place));
    stage.hands.Click(widget, place, modifiers, button);
    return true;
}

bool DoubleClick(Stage& stage) {
    QWidget* widget = AnySeen(stage.dice, *stage.program);
    const QPoint place = AnyPlace(stage.dice, *widget);
    stage.Say(At(*widget, place));
    stage.hands.DoubleClick(widget, place, AnyModifiers(stage.dice));
    return true;
}

/// A click that a user means: on a field, a button, a box to open.
bool ControlClick(Stage& stage) {
    QWidget* control = nullptr;
    switch (stage.dice.Below(3)) {
    case 0:
        control = AnySeen<QLineEdit>(stage.dice, *stage.program);
        break;
    case 1:
        control = AnySeen<QPushButton>(stage.dice, *stage.program);
        break;
    default:
        control = AnySeen<QComboBox>(stage.dice, *stage.program);
    }
    if (control == nullptr)
        return false;
    stage.Say(Detail(Describe(control)));
    stage.hands.Click(control, control->rect().center());
    return true;
}

bool LineClick(Stage& stage) {
    auto* list = AnySeen<ColumnList>(stage.dice, *stage.program);
    if (list == nullptr)
        return false;
    const QPoint place = AnyPlace(stage.dice, *list->viewport());
    const Qt::MouseButton button = stage.dice.OneIn(12) ? Qt::RightButton : Qt::LeftButton;
    const Qt::KeyboardModifiers modifiers = AnyModifiers(stage.dice);
    stage.Say(At(*list, place));
    stage.hands.Click(list->viewport(), place, modifiers, button);
    return true;
}

/// Chooses a material and puts it in.
bool Insertion(Stage& stage) {
    auto* list = AnySeen<MaterialList>(stage.dice, *stage.program);
    if (list == nullptr)
        return false;
    const QPoint place = AnyPlace(stage.dice, *list->viewport());
    const bool twice = stage.dice.OneIn(2);
    stage.Say(std::string(twice ? "double click on " : "Enter on ") + At(*list, place));
    if (twice) {
        stage.hands.DoubleClick(list->viewport(), place);
        return true;
    }
    stage.hands.Click(list->viewport(), place);
    for (int times = stage.dice.Between(1, 3); times > 0; --times)
        stage.hands.Key(stage.dice.OneIn(4) ? Qt::Key_C : Qt::Key_Return,
                        stage.dice.OneIn(4) ? Qt::ControlModifier : Qt::NoModifier);
    return true;
}

bool FrameButton(Stage& stage, const char* name) {
    auto* frame = AnySeen<ChildWindow>(stage.dice, *stage.program);
    if (frame == nullptr)
        return false;
    auto* button = frame->findChild<QToolButton*>(QLatin1String(name));
    stage.Say("of window " + std::to_string(frame->Id()));
    stage.hands.Click(button, button->rect().center());
    return true;
}

bool CloseBox(Stage& stage) {
    return FrameButton(stage, "CloseButton");
}

bool MinimiseBox(Stage& stage) {
    return FrameButton(stage, "MinimiseButton");
}

bool WindowMove(Stage& stage) {
    auto* frame = AnySeen<ChildWindow>(stage.dice, *stage.program);
    if (frame == nullptr)
        return false;
    const QPointer<ChildWindow> moved(frame);
    const QPoint grip(stage.dice.Below(frame->width() - 60), 10);
    const QPoint before = frame->pos();
    stage.Say("window " + std::to_string(frame->Id()));
    stage.hands.Press(frame, grip);
    QWidget* area = &stage.program->Area();
    for (int steps = stage.dice.Between(0, 3); steps > 0; --steps) {
        // Also to places outside of the area.
        const QPoint place = AnyPlace(stage.dice, *area) * 2 - QPoint(200, 200);
        stage.hands.Move(area, place);
    }
    stage.hands.Release(area, {});
    if (moved != nullptr && moved->pos() != before)
        stage.journal.Reach("windows moved");
    return true;
}

bool IconClick(Stage& stage) {
    for (ChildWindow* frame : Seen<ChildWindow>(*stage.program)) {
        if (!frame->IsMinimised() || stage.dice.OneIn(3))
            continue;
        stage.Say("window " + std::to_string(frame->Id()));
        stage.hands.DoubleClick(frame, {40, 10});
        return true;
    }
    return false;
}

bool Wheel(Stage& stage) {
    QWidget* widget = AnySeen(stage.dice, *stage.program);
    const int steps = stage.dice.Between(-3, 3);
    stage.Say(Detail(Describe(widget)) + ' ' + std::to_string(steps));
    stage.hands.Wheel(widget, widget->rect().center(), steps);
    return true;
}

/// A press whose release comes somewhere else, or never.
bool LostRelease(Stage& stage) {
    QWidget* widget = AnySeen(stage.dice, *stage.program);
    const QPoint place = AnyPlace(stage.dice, *widget);
    stage.Say(At(*widget, place));
    stage.hands.Press(widget, place);
    stage.hands.Move(stage.program, AnyPlace(stage.dice, *stage.program));
    stage.hands.Release(stage.program, AnyPlace(stage.dice, *stage.program));
    return true;
}

} // namespace

const EventKinds& MouseEvents() {
    static const EventKinds kinds = {{"click", 8, Click},
                                     {"double click", 3, DoubleClick},
                                     {"control click", 6, ControlClick},
                                     {"line click", 10, LineClick},
                                     {"insertion", 10, Insertion},
                                     {"close box", 1, CloseBox},
                                     {"minimise box", 2, MinimiseBox},
                                     {"window move", 3, WindowMove},
                                     {"icon click", 3, IconClick},
                                     {"wheel", 2, Wheel},
                                     {"lost release", 1, LostRelease}};
    return kinds;
}

} // namespace strativo::monkey
