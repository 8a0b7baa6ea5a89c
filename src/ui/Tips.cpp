#include "ui/Tips.h"

#include "ui/Text.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontMetrics>
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

void ShowTip(QWidget& control, const QString& text) {
    const QString lines = InLines(text, longestLine);
    QToolTip::showText(PlaceOfTip(control, lines), AsToolTip(lines), &control, control.rect());
}

Tips::Tips(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool Tips::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ToolTip || !watched->isWidgetType())
        return false;
    auto* control = static_cast<QWidget*>(watched);
    if (control->toolTip().isEmpty())
        return false; // a part of a control, which is asked next
    ShowTip(*control, PlainToolTip(*control));
    return true;
}

} // namespace strativo
