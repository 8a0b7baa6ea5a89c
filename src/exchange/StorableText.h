#pragma once

#include "exchange/JsonReader.h"
#include "files/NamedPart.h"
#include "model/Comments.h"

#include <string>

namespace strativo {

/// How names are checked and converted.
struct NameRules {
    JsonReader& reader;
    const NameTest& comesBack; ///< from a construction file
};

/// False, with a fault, for a name or path that a construction file cannot hold. If it is not going
/// to be written, it need not survive reading.
bool IsStorable(const NameRules& rules, JsonValue string, const std::string& bytes, NamedPart part,
                bool isWritten = true);

/// The name as bytes; nothing if it has a fault.
std::optional<std::string> ReadName(const NameRules& rules, JsonValue string, NamedPart part);

/// The lines of an array of comments, without those that have faults.
CommentLines ReadComments(JsonReader& reader, JsonValue array);

inline constexpr char commentLines[] = "an array of strings (comment lines)";

} // namespace strativo
