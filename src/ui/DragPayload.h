#pragma once

class QDropEvent;
class QMimeData;

namespace strativo {

/// What is dragged between the program's windows. The drag itself only says of which kind it is;
/// the data are in the core.
enum class DragKind { none, layers, material };

/// A payload of that kind, which only this running copy of the program recognises.
QMimeData* MakeDragPayload(DragKind kind);

/// The kind of a drag from this running copy of the program; none for any other.
DragKind KindOfDrag(const QDropEvent& event);

} // namespace strativo
