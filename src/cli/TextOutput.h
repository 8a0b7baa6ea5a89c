#pragma once

#include "port/Message.h"
#include "text/Windows1252.h"

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

inline constexpr char programName[] = "strativo-cli";

/// What is wrong with an output file; follows its name.
inline constexpr char outputIsInput[] = " is one of the files that are read";

/// The message's text or title in UTF-8, with its line breaks.
std::string MessageText(const Message& message);
std::string MessageTitle(const Message& message);

/// Text and path of a file as text output shows them: UTF-8 without control characters.
std::string ShownText(std::string_view bytes);
std::string ShownPath(std::string_view path);

/// Prints lines of text as ShownText gives them, each after the indent.
void PrintLines(std::ostream& out, const std::vector<std::string>& lines,
                std::string_view indent = {});

/// Prints "strativo-cli: " and the text as one line, without control characters.
void PrintError(std::ostream& err, const std::string& utf8);

} // namespace strativo
