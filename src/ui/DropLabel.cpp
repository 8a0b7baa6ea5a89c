#include "ui/DropLabel.h"

#include <QDragEnterEvent>

namespace strativo {

void DropLabel::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(KindOfDrag(*event) != DragKind::none);
    if (event->isAccepted())
        emit DragOver();
}

void DropLabel::dropEvent(QDropEvent* event) {
    const DragKind kind = KindOfDrag(*event);
    event->setAccepted(kind != DragKind::none);
    if (kind != DragKind::none)
        emit Dropped(kind);
}

} // namespace strativo
