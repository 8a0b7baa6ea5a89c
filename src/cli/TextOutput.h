#pragma once

#include "port/Message.h"
#include "text/Windows1252.h"

#include <iosfwd>
#include <string>

namespace strativo {

inline constexpr char programName[] = "strativo-cli";

/// The message's text or title as UTF-8, its line breaks kept.
std::string MessageText(const Message& message);
std::string MessageTitle(const Message& message);

/// The text with each line break (CR, LF, or one of each) as one blank.
std::string OneLine(const std::string& text);

/// Prints "strativo-cli: " and the text as one line.
void PrintError(std::ostream& err, const std::string& utf8);

} // namespace strativo
