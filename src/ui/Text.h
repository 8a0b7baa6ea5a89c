#pragma once

#include <QString>

#include <string>
#include <string_view>

class QLabel;
class QWidget;

namespace strativo {

// The only steps between the bytes of the core and Unicode.

/// Windows-1252 bytes for display.
QString ToText(std::string_view bytes);
/// Text as Windows-1252 bytes; what cannot be said there becomes "?".
std::string ToBytes(const QString& text);

/// A path for display: as UTF-8 where it is valid UTF-8, else as Windows-1252.
QString PathText(std::string_view path);
/// A chosen path as the file system's bytes.
std::string PathBytes(const QString& path);

// Names, paths and messages reach the toolkit as plain text only, and not at any length: it lays
// out all it is given, and loads what HTML asks for.

inline constexpr qsizetype longestShownLine = 1000;   ///< characters
inline constexpr qsizetype longestShownText = 200000; ///< characters

/// The text with its middle left out when it has more characters than that.
QString Elided(const QString& text, qsizetype longest = longestShownLine);
/// Text of several lines, each of them elided, and all of it too.
QString ElidedLines(const QString& text);
/// The caption of a menu item that shows the text as it stands, without access key and shortcut.
QString MenuCaption(const QString& text);
/// A label that shows its text as it stands, apart from "&" where it names a control.
QLabel* PlainLabel(const QString& text, QWidget* parent);
void SetPlainText(QLabel& label, const QString& text);
void SetPlainToolTip(QWidget& widget, const QString& text);

} // namespace strativo
