#include "Stage.h"
#include "ui/ProfileGraph.h"
#include "ui/WINPRO.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace strativo::monkey {

namespace {

Profile* Editor() {
    return qobject_cast<Profile*>(QApplication::activeModalWidget());
}

template <class Control>
Control* Find(const char* name) {
    return Editor()->findChild<Control*>(QLatin1String(name));
}

/// Where a point of the type being edited was drawn before it was edited.
QPoint AnyPoint(Stage& stage, const ProfileGraph& graph) {
    const Project& project = stage.program->TheProject();
    const GlassType& type = project.glassTypes[project.currentGlassType];
    const bool absorption = Find<QRadioButton>("GlassProp_1")->isChecked();
    const int column = stage.dice.Between(1, profileColumns);
    const QPoint point =
        graph.PointOf(column, absorption ? type.absorption[column] : type.transmission[column])
            .toPoint();
    // A point at the lower edge is half outside.
    return {point.x(), std::min(point.y(), graph.height() - 1)};
}

/// Presses on a point or beside one, and moves with the button held, also out of the graph.
bool GraphDrag(Stage& stage) {
    auto* graph = Find<ProfileGraph>("Graph");
    const QPoint press =
        stage.dice.OneIn(3) ? AnyPlace(stage.dice, *graph) : AnyPoint(stage, *graph);
    stage.Say(Detail(QStringLiteral("%1,%2").arg(press.x()).arg(press.y())));
    int moves = 0;
    const auto watch = QObject::connect(graph, &ProfileGraph::Dragged, [&] { ++moves; });
    stage.hands.Press(graph, press);
    for (int steps = stage.dice.Between(0, 4); steps > 0; --steps)
        stage.hands.Move(graph, AnyPlace(stage.dice, *graph) * 3 / 2 - QPoint(50, 50));
    if (stage.dice.OneIn(6))
        stage.hands.Key(Qt::Key_Tab);
    stage.hands.Release(graph, AnyPlace(stage.dice, *graph));
    QObject::disconnect(watch);
    if (moves > 0 && stage.program->TheProject().selectedProfileColumn > 0)
        stage.journal.Reach("glass values dragged");
    return true;
}

bool EditorKey(Stage& stage) {
    constexpr Qt::Key keys[] = {Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Home,   Qt::Key_End,
                                Qt::Key_Up,     Qt::Key_Down,   Qt::Key_PageUp, Qt::Key_PageDown,
                                Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Backtab,
                                Qt::Key_Space,  Qt::Key_Tab,    Qt::Key_Up,     Qt::Key_Delete};
    const Qt::Key key = stage.dice.Pick(keys);
    const Qt::KeyboardModifiers modifiers =
        stage.dice.OneIn(6) ? AnyModifiers(stage.dice) : Qt::NoModifier;
    stage.Say(QKeySequence(key | modifiers).toString().toStdString() + " in "
              + Detail(Describe(QApplication::focusWidget())));
    stage.hands.Key(key, modifiers);
    return true;
}

bool ValueEntry(Stage& stage) {
    auto* level = Find<QLineEdit>("EditLevel");
    if (!level->isVisible())
        return false;
    const QString text = AnyText(stage.dice);
    stage.Say('"' + Detail(text) + '"');
    stage.hands.Click(level, level->rect().center());
    stage.hands.Type(text.left(12));
    if (!stage.dice.OneIn(3))
        stage.hands.Key(Qt::Key_Return);
    stage.journal.Reach("glass values typed");
    return true;
}

bool NameEntry(Stage& stage) {
    auto* name = Find<QLineEdit>("GlassText");
    const QString text = AnyText(stage.dice);
    stage.Say('"' + Detail(text) + '"');
    stage.hands.Click(name, name->rect().center());
    stage.hands.Type(text.left(20));
    return true;
}

bool Property(Stage& stage) {
    auto* option = AnySeen<QRadioButton>(stage.dice, *Editor());
    stage.Say(Detail(Describe(option)));
    stage.hands.Click(option, option->rect().center());
    return true;
}

bool EditorEnd(Stage& stage) {
    constexpr const char* names[] = {"OkBut", "OkBut", "CancelBut"};
    const char* name = stage.dice.Pick(names);
    const QPointer<Profile> editor(Editor());
    auto* button = Find<QPushButton>(name);
    stage.Say(name);
    stage.hands.Click(button, button->rect().center());
    if (editor == nullptr || !editor->isVisible())
        stage.journal.Reach(name == std::string("OkBut") ? "glass types stored"
                                                         : "glass edits thrown away");
    return true;
}

bool EditorClose(Stage& stage) {
    stage.Say("");
    Editor()->close();
    return true;
}

} // namespace

const EventKinds& EditorEvents() {
    static const EventKinds kinds = {
        {"graph drag", 8, GraphDrag},    {"editor key", 10, EditorKey},
        {"glass value", 6, ValueEntry},  {"glass name", 4, NameEntry},
        {"property", 2, Property},       {"editor button", 4, EditorEnd},
        {"editor close", 1, EditorClose}};
    return kinds;
}

} // namespace strativo::monkey
