#pragma once

#include "ui/DragPayload.h"

#include <QLabel>

namespace strativo {

/// A label beside the layer list; a drop on it goes before the first or after the last line.
class DropLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

signals:
    void DragOver();
    void Dropped(DragKind kind);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Highlighted while something that it accepts is dragged over it.
    void StandOut(bool dragged);
};

} // namespace strativo
