#include "ui/MaterialList.h"

#include "edit/LayerDrag.h"

#include <QMouseEvent>
#include <QSignalBlocker>

namespace strativo {

MaterialList::MaterialList(QWidget* parent)
    : ColumnList(QStringLiteral("UValueList"), visibleMaterialRows, listHeight, parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
}

int MaterialList::SelectedLine() const {
    const auto selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.front().row();
}

void MaterialList::SelectLine(int line) {
    if (line == SelectedLine())
        return;
    const QSignalBlocker blocked(this);
    if (line < 0)
        clearSelection();
    else
        setCurrentRow(line);
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
