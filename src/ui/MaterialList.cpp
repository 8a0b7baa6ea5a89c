#include "ui/MaterialList.h"

#include "edit/LayerDrag.h"

#include <QKeyEvent>

namespace strativo {

namespace {

/// Enter with any modifiers; C and Insert with Ctrl alone.
bool IsCommandKey(const QKeyEvent& event) {
    const int key = event.key();
    const bool ctrlOnly = (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
    return key == Qt::Key_Return || key == Qt::Key_Enter
           || (ctrlOnly && (key == Qt::Key_C || key == Qt::Key_Insert));
}

} // namespace

MaterialList::MaterialList(QWidget* parent)
    : ColumnList(QStringLiteral("UValueList"), visibleMaterialRows, listHeight, parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
}

int MaterialList::SelectedLine() const {
    const auto selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.front().row();
}

void MaterialList::keyPressEvent(QKeyEvent* event) {
    if (IsCommandKey(*event)) {
        // Enter held down must not go on inserting.
        if (!event->isAutoRepeat())
            emit CommandKeyPressed(event->key());
        return;
    }
    ColumnList::keyPressEvent(event);
}

void MaterialList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && LineAt(event->position().toPoint()) < count())
        emit LineDoubleClicked();
}

void MaterialList::PressLine(int line, Qt::KeyboardModifiers) {
    setCurrentRow(line);
}

void MaterialList::ReleaseLine(int, Qt::KeyboardModifiers) {}

} // namespace strativo
