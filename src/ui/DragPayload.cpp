#include "ui/DragPayload.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUuid>

namespace strativo {

namespace {

QString Format(DragKind kind) {
    return kind == DragKind::layers ? QStringLiteral("application/x-strativo-layers")
                                    : QStringLiteral("application/x-strativo-material");
}

/// Differs in every running copy of the program.
const QByteArray& ThisCopy() {
    static const QByteArray id = QUuid::createUuid().toByteArray();
    return id;
}

} // namespace

QMimeData* MakeDragPayload(DragKind kind) {
    auto* data = new QMimeData;
    data->setData(Format(kind), ThisCopy());
    return data;
}

DragKind KindOfDrag(const QDropEvent& event) {
    for (const DragKind kind : {DragKind::layers, DragKind::material})
        if (event.mimeData()->data(Format(kind)) == ThisCopy())
            return kind;
    return DragKind::none;
}

} // namespace strativo
