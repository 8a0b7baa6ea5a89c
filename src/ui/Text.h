#pragma once

#include <QString>

#include <string>
#include <string_view>

class QLabel;
class QWidget;

namespace strativo {

// All conversions between the bytes of the core and Unicode.

/// Windows-1252 bytes for display.
QString ToText(std::string_view bytes);
/// Text as Windows-1252 bytes; characters that do not exist there become "?".
std::string ToBytes(const QString& text);

/// A path for display: as UTF-8 where it is valid UTF-8, else as Windows-1252.
QString PathText(std::string_view path);
/// A chosen path as the file system's bytes.
std::string PathBytes(const QString& path);

// Names, paths and messages reach Qt as plain text of limited length: it lays out all text that it
// is given, and loads whatever HTML refers to.

inline constexpr qsizetype longestShownLine = 1000;   ///< characters
inline constexpr qsizetype longestShownText = 200000; ///< characters

/// The text, with its middle left out if it has more characters than that.
QString Elided(const QString& text, qsizetype longest = longestShownLine);
/// Text of several lines, elided line by line and as a whole.
QString ElidedLines(const QString& text);
/// A menu item's caption that shows the text unchanged, without access key and shortcut.
QString MenuCaption(const QString& text);
/// A label that shows its text unchanged, except that "&" marks the access key when it names a
/// control.
QLabel* PlainLabel(const QString& text, QWidget* parent);
void SetPlainText(QLabel& label, const QString& text);
/// The same for a label beside its caption: screen readers are told both.
void SetValueText(QLabel& label, const QString& caption, const QString& value);
/// What a tooltip has to be given to show the text as it stands. Tooltips have no plain format:
/// what would be taken for HTML has to be HTML that shows it.
QString AsToolTip(const QString& text);
void SetPlainToolTip(QWidget& widget, const QString& text);
/// The text that the widget's tooltip shows.
QString PlainToolTip(const QWidget& widget);

} // namespace strativo
