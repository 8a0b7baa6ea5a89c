#include "ui/DropLabel.h"

#include <QDragEnterEvent>

namespace strativo {

void DropLabel::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(KindOfDrag(*event) != DragKind::none);
    StandOut(event->isAccepted());
    if (event->isAccepted())
        emit DragOver();
}

void DropLabel::dragLeaveEvent(QDragLeaveEvent*) {
    StandOut(false);
}

void DropLabel::StandOut(bool dragged) {
    QPalette colours;
    if (dragged) {
        colours.setColor(QPalette::Window, colours.color(QPalette::Highlight));
        colours.setColor(QPalette::WindowText, colours.color(QPalette::HighlightedText));
    }
    setPalette(colours);
    setAutoFillBackground(dragged);
}

void DropLabel::dropEvent(QDropEvent* event) {
    const DragKind kind = KindOfDrag(*event);
    event->setAccepted(kind != DragKind::none);
    StandOut(false);
    if (kind != DragKind::none)
        emit Dropped(kind);
}

} // namespace strativo
