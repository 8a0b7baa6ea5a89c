#include "Stage.h"
#include "ui/DragPayload.h"
#include "ui/DropLabel.h"
#include "ui/LayerList.h"
#include "ui/MaterialList.h"
#include "ui/UValue.h"

#include <QApplication>
#include <QMimeData>
#include <QUrl>

#include <memory>

namespace strativo::monkey {

namespace {

using Payload = std::unique_ptr<QMimeData>;

/// Presses on the list and moves far enough; true when the list began a drag, which the toolkit
/// gives up at once where there is no screen.
bool StartDrag(Stage& stage, ColumnList& list, QPoint place, Qt::KeyboardModifiers modifiers) {
    const QPointer<ColumnList> alive(&list);
    bool wanted = false;
    int line = -1;
    const auto watch = QObject::connect(&list, &ColumnList::DragWanted, [&](int at) {
        wanted = true;
        line = at;
    });
    QWidget* viewport = list.viewport();
    stage.hands.Press(viewport, place, modifiers);
    if (alive != nullptr)
        stage.hands.Move(viewport, place + QPoint(QApplication::startDragDistance() + 1, 0),
                         modifiers);
    QObject::disconnect(watch);
    stage.hands.Release(stage.program, {});
    return wanted && line >= 0 && alive != nullptr && line < list.count();
}

/// Where to let go: mostly on a list, sometimes on its labels, or anywhere.
QPoint Target(Stage& stage) {
    Dice& dice = stage.dice;
    QWidget* on = nullptr;
    if (const auto* list = AnySeen<LayerList>(dice, *stage.program); list && !dice.OneIn(4))
        on = list->viewport();
    else if (dice.OneIn(2))
        on = AnySeen<DropLabel>(dice, *stage.program);
    if (on == nullptr)
        on = AnySeen(dice, *stage.program);
    return on->mapTo(stage.program, AnyPlace(dice, *on));
}

const UValue* WindowAt(Stage& stage, QPoint place) {
    for (const QWidget* at = stage.program->childAt(place); at != nullptr; at = at->parentWidget())
        if (const auto* window = qobject_cast<const UValue*>(at))
            return window;
    return nullptr;
}

/// A place in another construction's list, where one can be seen; any place otherwise.
QPoint TargetElsewhere(Stage& stage, const QWidget* source) {
    const std::vector<LayerList*> lists = Seen<LayerList>(*stage.program);
    for (int tries = 0; tries < 30 && lists.size() > 1; ++tries) {
        const QWidget* on = stage.dice.Pick(lists)->viewport();
        const QPoint place = on->mapTo(stage.program, AnyPlace(stage.dice, *on));
        const UValue* window = WindowAt(stage, place);
        if (window != nullptr && window != source)
            return place;
    }
    return Target(stage);
}

/// Goes over some places and lets go at the last, or takes the drag back with Esc.
bool Finish(Stage& stage, const QMimeData& data) {
    for (int places = stage.dice.Between(0, 3); places > 0; --places)
        stage.hands.DragOver(stage.program, Target(stage), data);
    if (stage.dice.OneIn(8)) {
        stage.hands.AbandonDrag();
        stage.journal.Reach("drags taken back");
        return false;
    }
    stage.hands.DragOver(stage.program, Target(stage), data);
    return stage.hands.Drop(data);
}

bool LayerDrag(Stage& stage) {
    auto* list = AnySeen<LayerList>(stage.dice, *stage.program);
    if (list == nullptr || list->count() == 0)
        return false;
    const Qt::KeyboardModifiers modifiers = AnyModifiers(stage.dice);
    const QPoint place(stage.dice.Below(list->viewport()->width()),
                       stage.dice.Below(std::min(list->count(), 9) * list->sizeHintForRow(0)));
    const QWidget* source = list->parentWidget();
    stage.Say(Detail(QStringLiteral("from line at %1").arg(place.y()))
              + (modifiers & Qt::ControlModifier ? " with Ctrl" : ""));
    if (!StartDrag(stage, *list, place, modifiers))
        return true;
    const Payload data(MakeDragPayload(DragKind::layers));
    stage.hands.DragOver(stage.program, Target(stage), *data);
    const QPoint target = stage.dice.OneIn(2) ? TargetElsewhere(stage, source) : Target(stage);
    const bool leaves = WindowAt(stage, target) != source;
    if (!stage.hands.DragOver(stage.program, target, *data) || stage.dice.OneIn(8)) {
        stage.hands.AbandonDrag();
        stage.journal.Reach("drags taken back");
    } else if (stage.hands.Drop(*data)) {
        stage.journal.Reach("layers dragged");
        if (leaves)
            stage.journal.Reach("layers dropped in another window");
    }
    return true;
}

bool MaterialDrag(Stage& stage) {
    auto* list = AnySeen<MaterialList>(stage.dice, *stage.program);
    if (list == nullptr || list->count() == 0)
        return false;
    const QPoint place = AnyPlace(stage.dice, *list->viewport());
    stage.Say(Detail(QStringLiteral("from line at %1").arg(place.y())));
    const int events = stage.journal.Events();
    const bool started = StartDrag(stage, *list, place, {});
    // Events meanwhile belong to a box, which says why this material cannot be taken.
    if (!started || stage.journal.Events() != events)
        return true;
    const Payload data(MakeDragPayload(DragKind::material));
    if (Finish(stage, *data))
        stage.journal.Reach("materials dropped");
    return true;
}

/// What other programs, or a second copy of this one, may bring.
bool ForeignDrag(Stage& stage) {
    const Payload data(std::make_unique<QMimeData>());
    if (stage.dice.OneIn(2))
        data->setText(AnyText(stage.dice));
    else
        data->setData(QStringLiteral("application/x-strativo-layers"), "another copy");
    stage.Say(Detail(data->formats().join(QLatin1Char(' '))));
    if (!Finish(stage, *data))
        stage.journal.Reach("foreign data refused");
    return true;
}

bool FileDrop(Stage& stage) {
    QList<QUrl> urls;
    for (int files = stage.dice.OneIn(8) ? 2 : 1; files > 0; --files)
        urls.append(QUrl::fromLocalFile(QString::fromStdString(
            stage.dice.OneIn(3) ? stage.world.AnyPath(stage.dice)
                                : stage.world.AnyConstructionFile(stage.dice))));
    if (stage.dice.OneIn(10))
        urls = {QUrl(QStringLiteral("file://elsewhere/x.con"))};
    const Payload data(std::make_unique<QMimeData>());
    data->setUrls(urls);
    stage.Say(stage.world.ShortName(urls.front().toLocalFile().toStdString()));
    if (Finish(stage, *data)) {
        stage.journal.Reach("files dropped");
        stage.lastFileDrop = stage.journal.Events();
    }
    return true;
}

} // namespace

const EventKinds& DragEvents() {
    static const EventKinds kinds = {{"layer drag", 12, LayerDrag},
                                     {"material drag", 6, MaterialDrag},
                                     {"foreign drag", 1, ForeignDrag},
                                     {"file drop", 1, FileDrop}};
    return kinds;
}

const EventKinds& AwayEvents() {
    static const EventKinds kinds = {{"foreign drag", 1, ForeignDrag}, {"file drop", 1, FileDrop}};
    return kinds;
}

} // namespace strativo::monkey
