#pragma once

#include <QString>

#include <string>
#include <string_view>

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

} // namespace strativo
