#include "exchange/StorableText.h"

namespace strativo {

namespace {

/// Characters that end a line or are dropped when a line is read.
bool BreaksLine(const std::string& bytes) {
    return bytes.find_first_of("\t\r\n\x1a") != std::string::npos;
}

constexpr char withoutBreaks[] = "without a tab, a line break or an end-of-file mark (26)";

} // namespace

bool IsStorable(const NameRules& rules, JsonValue string, const std::string& bytes, NamedPart part,
                bool isWritten) {
    if (BreaksLine(bytes)) {
        rules.reader.FailExpecting("unstorable-name", string,
                                   std::string("a text ") + withoutBreaks);
        return false;
    }
    if (!isWritten || rules.comesBack(part, bytes))
        return true;
    rules.reader.Fail("unstorable-name", string,
                      "a reader of the construction file would not get this back, "
                          + Described(string) + " (--force writes it all the same)");
    return false;
}

std::optional<std::string> ReadName(const NameRules& rules, JsonValue string, NamedPart part) {
    std::optional<std::string> bytes = rules.reader.Bytes(string);
    if (bytes && !IsStorable(rules, string, *bytes, part))
        bytes.reset();
    return bytes;
}

CommentLines ReadComments(JsonReader& reader, JsonValue array) {
    constexpr char what[] = "a string (comment line)";
    CommentLines lines;
    reader.ReadItems(array, [&](JsonValue item) {
        if (!reader.Check(item, JsonKind::string, what))
            return;
        const std::optional<std::string> bytes = reader.Bytes(item);
        if (bytes && BreaksLine(*bytes))
            reader.FailExpecting("unstorable-text", item,
                                 std::string("a comment line ") + withoutBreaks);
        else if (bytes)
            lines.push_back(*bytes);
    });
    return lines;
}

} // namespace strativo
