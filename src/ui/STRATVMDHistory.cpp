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
    ShowMove(history.Undo(project), tr("Taken back: %1. Ctrl+Y does it again"),
             tr("There is nothing to take back"));
}

void UValueMDI::Redo() {
    ShowMove(history.Redo(project), tr("Done again: %1. Ctrl+Z takes it back"),
             tr("There is nothing to do again"));
}

/// A construction comes to the front by itself; glass types are seen in their window.
void UValueMDI::ShowMove(const std::optional<HistoryMove>& move, const QString& said,
                         const QString& saidWithout) {
    if (move && move->glassTypes)
        EditWin_Click();
    status->Say(move ? said.arg(ToText(move->action)) : saidWithout);
}

} // namespace strativo
