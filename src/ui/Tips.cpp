#include "ui/Tips.h"

#include "ui/Text.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QScreen>
#include <QToolTip>
#include <QWidget>

namespace strativo {

namespace {

constexpr int longestLine = 60; // characters

/// The end of the line that starts there, and the start of the next one.
std::pair<qsizetype, qsizetype> BreakAfter(const QString& text, qsizetype start, int longest) {
    const qsizetype lineEnd = text.indexOf(QLatin1Char('\n'), start);
    const qsizetype end = lineEnd < 0 ? text.size() : lineEnd;
    if (end - start <= longest)
        return {end, end + 1};
    const qsizetype blank = text.lastIndexOf(QLatin1Char(' '), start + longest);
    if (blank > start)
        return {blank, blank + 1};
    return {start + longest, start + longest};
}

/// Qt shows a tip below the point it is given, by about the height of a pointer.
constexpr int pointerHeight = 32; // at most
constexpr int frame = 8;

QPoint PlaceOfTip(const QWidget& control, const QString& lines) {
    const QRect place(control.mapToGlobal(QPoint(0, 0)), control.size());
    const int height = QFontMetrics(QToolTip::font()).size(0, lines).height() + frame;
    if (place.bottom() + pointerHeight + height <= control.screen()->availableGeometry().bottom())
        return {place.left(), place.bottom()};
    return {place.left(), place.top() - height - pointerHeight};
}

/// Shows what there is to tell about the line of a list at that place; false for nothing.
bool ShowTipOfLine(const QAbstractItemView& list, QPoint place) {
    const QModelIndex index = list.indexAt(place);
    if (!index.isValid())
        return false;
    const QRect line = list.visualRect(index).intersected(list.viewport()->rect());
    QString text = index.data(toldRole).toString();
    if (text.isEmpty() && list.sizeHintForIndex(index).width() > line.width())
        text = index.data().toString();
    if (!text.isEmpty())
        ShowTip(*list.viewport(), text, line);
    return !text.isEmpty();
}

} // namespace

QString InLines(const QString& text, int longest) {
    QString lines;
    for (qsizetype start = 0; start < text.size();) {
        const auto [end, next] = BreakAfter(text, start, longest);
        lines += (start > 0 ? QStringLiteral("\n") : QString()) + text.mid(start, end - start);
        start = next;
    }
    return lines;
}

void ShowTip(QWidget& control, const QString& text, QRect part) {
    const QString lines = InLines(text, longestLine);
    QToolTip::showText(PlaceOfTip(control, lines), AsToolTip(lines), &control,
                       part.isEmpty() ? control.rect() : part);
}

Tips::Tips(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool Tips::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip || !watched->isWidgetType())
        return false;
    auto* control = static_cast<QWidget*>(watched);
    const auto* list = qobject_cast<QAbstractItemView*>(control->parentWidget());
    if (list != nullptr && list->viewport() == control)
        return ShowTipOfLine(*list, static_cast<QHelpEvent*>(event)->pos());
    if (control->toolTip().isEmpty())
        return false; // a part of a control, which is asked next
    ShowTip(*control, PlainToolTip(*control));
    return true;
}

} // namespace strativo
