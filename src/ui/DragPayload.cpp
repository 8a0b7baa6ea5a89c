#include "ui/DragPayload.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>

namespace strativo {

namespace {

QString Format(DragKind kind) {
    return kind == DragKind::layers ? QStringLiteral("application/x-strativo-layers")
                                    : QStringLiteral("application/x-strativo-material");
}

QByteArray ThisCopy() {
    return QByteArray::number(QCoreApplication::applicationPid());
}

} // namespace

QMimeData* MakeDragPayload(DragKind kind) {
    auto* data = new QMimeData;
    data->setData(Format(kind), ThisCopy());
    return data;
}

DragKind KindOfDrag(const QDropEvent& event) {
    for (const DragKind kind : {DragKind::layers, DragKind::material})
        if (event.source() != nullptr && event.mimeData()->data(Format(kind)) == ThisCopy())
            return kind;
    return DragKind::none;
}

} // namespace strativo
