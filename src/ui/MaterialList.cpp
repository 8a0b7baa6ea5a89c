#include "ui/MaterialList.h"

#include "edit/LayerDrag.h"
#include "edit/TypeAhead.h"
#include "ui/Text.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStatusTipEvent>

namespace strativo {

namespace {

constexpr int nameColumn = 33; // characters
constexpr std::chrono::milliseconds pauseThatEndsASearch(1500);

} // namespace

MaterialList::MaterialList(QWidget* parent)
    : ColumnList(QStringLiteral("UValueList"), visibleMaterialRows, listHeight, parent) {
    setSelectionMode(QAbstractItemView::SingleSelection);
    searching.setSingleShot(true);
    searching.setInterval(pauseThatEndsASearch);
    connect(&searching, &QTimer::timeout, this, &MaterialList::EndSearch);
}

bool MaterialList::SetLines(const std::vector<std::string>& lines) {
    if (!ColumnList::SetLines(lines))
        return false;
    scrollToTop();
    if (searching.isActive())
        EndSearch();
    return true;
}

int MaterialList::SelectedLine() const {
    const auto selected = selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.front().row();
}

void MaterialList::SelectLine(int line) {
    if (line == SelectedLine())
        return;
    const QSignalBlocker blocked(this);
    if (line >= 0) {
        setCurrentRow(line);
        return;
    }
    clearSelection();
    scrollToTop(); // even if setting the lines changed nothing, as after a sort of a sorted library
}

/// Blank and Backspace belong to the search when one is in progress.
void MaterialList::keyPressEvent(QKeyEvent* event) {
    if (searching.isActive() && event->key() == Qt::Key_Backspace) {
        typed.chop(1);
        Search();
    } else if (searching.isActive() && event->text() == QLatin1String(" ")) {
        keyboardSearch(event->text());
    } else {
        ColumnList::keyPressEvent(event);
    }
}

void MaterialList::keyboardSearch(const QString& letters) {
    if (!searching.isActive())
        typed.clear();
    typed += letters;
    Search();
}

void MaterialList::Search() {
    searching.start();
    std::vector<std::string> names;
    for (int line = 0; line < count(); ++line)
        names.push_back(ToBytes(item(line)->text().left(nameColumn).trimmed()));
    const int line = LineOfTyped(names, ToBytes(typed), SelectedLine());
    if (line >= 0) {
        setCurrentRow(line);
        scrollToItem(item(line), QAbstractItemView::PositionAtTop);
    }
    const bool found = line >= 0 || typed.isEmpty();
    Say((found ? tr("Search: %1") : tr("Search: %1 - no such material")).arg(typed));
}

void MaterialList::EndSearch() {
    searching.stop();
    typed.clear();
    Say(QString());
}

/// The main window's status bar shows it; an empty text brings its own line back.
void MaterialList::Say(const QString& text) {
    QStatusTipEvent said(text);
    QCoreApplication::sendEvent(this, &said);
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
