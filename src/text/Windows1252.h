#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace strativo {

/// The code point of a Windows-1252 byte.
char16_t CodePoint(char byte);

/// Windows-1252 bytes as UTF-8. A byte without a meaning there becomes the code point of the same
/// number.
std::string ToUtf8(std::string_view bytes);

/// UTF-8 as Windows-1252 bytes; what cannot be said there becomes "?".
std::string FromUtf8(std::string_view utf8);

/// Windows-1252 bytes with their capitals as small letters, those with marks included.
std::string LowerCase(std::string_view bytes);

bool IsValidUtf8(std::string_view bytes);

/// The byte that Windows-1252 has for a code point, those without a meaning there included.
std::optional<char> ByteOf(char32_t code);

/// The code point at the front, which is taken off; nothing when the bytes are not UTF-8.
std::optional<char32_t> TakeCodePoint(std::string_view& utf8);

/// Adds a code point (no surrogate) to a text in UTF-8.
void AppendUtf8(std::string& out, char32_t code);

/// A file system path for people to read: as UTF-8 when it is valid UTF-8, else as Windows-1252.
std::string PathToUtf8(std::string_view path);

} // namespace strativo
