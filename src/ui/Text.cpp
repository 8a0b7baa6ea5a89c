#include "ui/Text.h"

#include "text/Windows1252.h"

#include <QFile>
#include <QLabel>
#include <QStringList>
#include <QTextDocument>
#include <QWidget>

#include <algorithm>

namespace strativo {

namespace {

// Around a text in a tooltip that shows it as it stands.
constexpr QLatin1String markupStart("<p style='white-space: pre'>");
constexpr QLatin1String markupEnd("</p>");

} // namespace

QString ToText(std::string_view bytes) {
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), CodePoint);
    return text;
}

std::string ToBytes(const QString& text) {
    return FromUtf8(text.toStdString());
}

QString PathText(std::string_view path) {
    return QString::fromStdString(PathToUtf8(path));
}

std::string PathBytes(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

QString Elided(const QString& text, qsizetype longest) {
    if (text.size() <= longest)
        return text;
    const qsizetype kept = longest / 2 - 1;
    return text.left(kept) + QChar(0x2026) + text.right(kept);
}

QString ElidedLines(const QString& text) {
    QStringList lines = Elided(text, longestShownText).split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = Elided(line);
    return lines.join(QLatin1Char('\n'));
}

QString MenuCaption(const QString& text) {
    QString caption = Elided(text);
    caption.replace(QLatin1Char('&'), QLatin1String("&&"));
    return caption.replace(QLatin1Char('\t'), QLatin1Char(' '));
}

QLabel* PlainLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(parent);
    SetPlainText(*label, text);
    return label;
}

void SetPlainText(QLabel& label, const QString& text) {
    label.setTextFormat(Qt::PlainText);
    label.setText(ElidedLines(text));
}

void SetValueText(QLabel& label, const QString& caption, const QString& value) {
    SetPlainText(label, value);
    label.setAccessibleName(caption + QLatin1String(": ") + Elided(value));
}

QString AsToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? markupStart + text.toHtmlEscaped() + markupEnd : text;
}

void SetPlainToolTip(QWidget& widget, const QString& text) {
    widget.setToolTip(AsToolTip(ElidedLines(text)));
}

QString PlainToolTip(const QWidget& widget) {
    QString text = widget.toolTip();
    if (!text.startsWith(markupStart))
        return text;
    text = text.mid(markupStart.size(), text.size() - markupStart.size() - markupEnd.size());
    text.replace(QLatin1String("&lt;"), QLatin1String("<"));
    text.replace(QLatin1String("&gt;"), QLatin1String(">"));
    text.replace(QLatin1String("&quot;"), QLatin1String("\""));
    text.replace(QLatin1String("&amp;"), QLatin1String("&"));
    return text;
}

} // namespace strativo
