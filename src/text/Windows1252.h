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

/// UTF-8 as Windows-1252 bytes; characters that do not exist there become "?".
std::string FromUtf8(std::string_view utf8);

/// Windows-1252 text in lower case, accented letters included.
std::string LowerCase(std::string_view bytes);

bool IsValidUtf8(std::string_view bytes);

/// The Windows-1252 byte for a code point; the undefined bytes stand for their own number.
std::optional<char> ByteOf(char32_t code);

/// Removes the code point at the front and returns it; nothing if the bytes are not UTF-8.
std::optional<char32_t> TakeCodePoint(std::string_view& utf8);

/// Adds a code point (no surrogate) to a text in UTF-8.
void AppendUtf8(std::string& out, char32_t code);

/// A file system path for display: as UTF-8 if it is valid UTF-8, otherwise as Windows-1252.
std::string PathToUtf8(std::string_view path);

} // namespace strativo
