#pragma once

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

/// A file system path for people to read: as UTF-8 when it is valid UTF-8, else as Windows-1252.
std::string PathToUtf8(std::string_view path);

} // namespace strativo
