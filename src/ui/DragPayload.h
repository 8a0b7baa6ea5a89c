#pragma once

class QDropEvent;
class QMimeData;

namespace strativo {

/// What is dragged between the program's windows. The data themselves are the core's: the drag
/// only says of which kind it is.
enum class DragKind { none, layers, material };

/// A payload of that kind, recognised only by this running copy of the program.
QMimeData* MakeDragPayload(DragKind kind);

/// The kind of a drag from this running copy of the program; none for any other drag.
DragKind KindOfDrag(const QDropEvent& event);

} // namespace strativo
