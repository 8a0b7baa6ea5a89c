#include "ui/HistoryKeys.h"
#include "ui/STRATVMD.h"
#include "ui/StatusBar.h"
#include "ui/Text.h"

// Undo and redo in the main window and in those that belong to it.

namespace strativo {

void UValueMDI::AddUndoKeys(QWidget* window) {
    AddHistoryKeys(
        window, [this] { Perform([this] { Undo(); }); }, [this] { Perform([this] { Redo(); }); });
}

void UValueMDI::TellOfStep() {
    QString action = ToText(history.NextUndo());
    action[0] = action[0].toUpper();
    status->Say(tr("%1. Ctrl+Z takes it back").arg(action));
}

void UValueMDI::Undo() {
    const auto move = history.Undo(project);
    if (move)
        ShowMove(*move);
    status->Say(move ? tr("Taken back: %1. Ctrl+Y does it again").arg(ToText(move->action))
                     : tr("There is nothing to take back"));
}

void UValueMDI::Redo() {
    const auto move = history.Redo(project);
    if (move)
        ShowMove(*move);
    status->Say(move ? tr("Done again: %1. Ctrl+Z takes it back").arg(ToText(move->action))
                     : tr("There is nothing to do again"));
}

/// A construction comes to the front by itself; glass types are seen in their window.
void UValueMDI::ShowMove(const HistoryMove& move) {
    if (move.glassTypes)
        EditWin_Click();
}

} // namespace strativo
