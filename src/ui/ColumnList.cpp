#include "ui/ColumnList.h"

#include "edit/LayerDrag.h"
#include "ui/Text.h"
#include "ui/Twips.h"

#include <QApplication>
#include <QFontDatabase>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <utility>

namespace strativo {

namespace {

/// Gives every row the height that the drag arithmetic assumes. Draws its text in one go: Qt would
/// work out the layout of each line three times, which is most of what painting a list costs.
class RowDelegate : public QStyledItemDelegate {
public:
    RowDelegate(int rowPixels, QObject* parent) : QStyledItemDelegate(parent), height(rowPixels) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), height};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const QString text = std::exchange(row.text, QString());
        row.features &= ~QStyleOptionViewItem::HasDisplay;
        const QStyle& style = *row.widget->style();
        style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
        const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &row, row.widget) + 1;
        const int baseline = row.rect.top() + (row.rect.height() - row.fontMetrics.height()) / 2
                             + row.fontMetrics.ascent();
        const bool isSelected = (row.state & QStyle::State_Selected) != 0;
        painter->setFont(row.font);
        painter->setPen(row.palette.color(ColorGroup(row.state),
                                          isSelected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(row.rect.left() + margin, baseline, text);
    }

private:
    static QPalette::ColorGroup ColorGroup(QStyle::State state) {
        if ((state & QStyle::State_Enabled) == 0)
            return QPalette::Disabled;
        return (state & QStyle::State_Active) != 0 ? QPalette::Normal : QPalette::Inactive;
    }

    int height;
};

/// The fonts of the columns, best first unless only the other is installed: looking for a
/// substitute for a missing first font would take a thirtieth of the start-up time.
QStringList ColumnFamilies() {
    QStringList families{QStringLiteral("Courier New"), QStringLiteral("Liberation Mono")};
    if (QFontDatabase::styles(families.front()).isEmpty())
        families.swapItemsAt(0, 1);
    return families;
}

} // namespace

QFont ColumnFont() {
    static const QStringList families = ColumnFamilies();
    QFont font(families);
    // Files hold Windows-1252, which any such font covers, so looking for fallback fonts would only
    // slow down the start.
    font.setStyleHint(QFont::TypeWriter, QFont::NoFontMerging);
    font.setPointSizeF(8.25);
    return font;
}

ColumnList::ColumnList(const QString& objectName, int rows, int heightInTwips, QWidget* parent)
    : PlainList(parent), visibleRows(rows) {
    setObjectName(objectName);
    setFont(ColumnFont());
    setItemDelegate(new RowDelegate(RowHeightInPixels(), this));
    setUniformItemSizes(true);
    setFixedHeight(FromTwips(heightInTwips, *this));
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(1);
    setDragEnabled(false);
    setTextElideMode(Qt::ElideNone);
}

bool ColumnList::SetLines(const std::vector<std::string>& lines) {
    if (lines == shownLines)
        return false;
    shownLines = lines;
    const QSignalBlocker blocked(this);
    const int top = TopLine();
    clear();
    for (const std::string& line : lines)
        addItem(ToText(line));
    doItemsLayout(); // before this there is nowhere to scroll to
    verticalScrollBar()->setValue(top);
    return true;
}

int ColumnList::LineAt(const QPoint& position) const {
    return TopLine() + VisibleRow(position.y(), RowHeightInPixels(), visibleRows);
}

int ColumnList::RowHeightInPixels() const {
    return FromTwips(rowHeight, *this);
}

int ColumnList::TopLine() const {
    return verticalScrollBar()->value();
}

int ColumnList::WidthFor(int characters) const {
    const int text = QFontMetrics(font()).horizontalAdvance(QLatin1Char('0')) * characters;
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return text + scrollBar + 2 * frameWidth() + 8;
}

void ColumnList::mousePressEvent(QMouseEvent* event) {
    const int line = LineAt(event->position().toPoint());
    const int hit = line < count() ? line : -1;
    if (event->button() == Qt::RightButton && hit >= 0 && !item(hit)->isSelected())
        PressLine(hit, Qt::NoModifier); // the context menu is about the line under the pointer
    if (event->button() != Qt::LeftButton)
        return;
    pressed = true;
    pressedLine = hit;
    pressPosition = event->position().toPoint();
    if (pressedLine >= 0)
        PressLine(pressedLine, event->modifiers());
}

void ColumnList::mouseMoveEvent(QMouseEvent* event) {
    const QPoint moved = event->position().toPoint() - pressPosition;
    if (!pressed || !(event->buttons() & Qt::LeftButton)
        || moved.manhattanLength() < QApplication::startDragDistance())
        return;
    pressed = false;
    emit DragWanted(pressedLine, pressPosition, event->modifiers() & Qt::ControlModifier);
}

void ColumnList::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && pressed && pressedLine >= 0)
        ReleaseLine(pressedLine, event->modifiers());
    pressed = false;
}

} // namespace strativo
