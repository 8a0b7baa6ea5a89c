#include "exchange/JsonTree.h"
#include "text/Windows1252.h"

#include <algorithm>

namespace strativo {

namespace {

constexpr char syntaxRule[] = "json-syntax";
constexpr char encodingRule[] = "json-encoding";
constexpr char limitRule[] = "json-limit";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

struct JsonError {
    const char* rule;
    std::size_t offset;
    std::string text;
};

FilePlace PlaceOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const auto lineFeed = before.rfind('\n');
    std::string_view line =
        lineFeed == std::string_view::npos ? before : before.substr(lineFeed + 1);
    if (lineFeed == std::string_view::npos && line.starts_with(byteOrderMark))
        line.remove_prefix(byteOrderMark.size());
    const auto characters =
        std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; });
    return {static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1,
            static_cast<int>(characters) + 1};
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

class JsonParser {
public:
    JsonParser(std::string_view source, JsonTree& target) : text(source), tree(target) {}

    void Run() {
        CheckEncoding();
        if (text.starts_with(byteOrderMark))
            at = byteOrderMark.size();
        ParseValue(0);
        SkipBlanks();
        if (at != text.size())
            FailExpecting("the end of the text");
    }

private:
    [[noreturn]] void Fail(const char* rule, std::size_t offset, const std::string& what) const {
        throw JsonError{rule, offset, what};
    }

    [[noreturn]] void FailExpecting(const std::string& what) const {
        const char c = Peek();
        if (c == '/' || c == '#')
            Fail(syntaxRule, at, "expected " + what + ", got a comment, which JSON has not");
        Fail(syntaxRule, at,
             "expected " + what + (at == text.size() ? ", got the end of the text" : ""));
    }

    void CheckEncoding() const {
        const bool marked = text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
        if (marked || text.substr(0, 2).find('\0') != std::string_view::npos)
            Fail(encodingRule, 0, "the text is UTF-16 or UTF-32; it has to be UTF-8");
        for (std::string_view rest = text; !rest.empty();) {
            if (static_cast<unsigned char>(rest[0]) < 0x80)
                rest.remove_prefix(1);
            else if (!TakeCodePoint(rest))
                Fail(encodingRule, text.size() - rest.size(), "a byte that is not UTF-8");
        }
    }

    char Peek() const { return at < text.size() ? text[at] : '\0'; }

    void SkipBlanks() {
        while (at < text.size() && (text[at] == ' ' || (text[at] >= '\t' && text[at] <= '\r')))
            if (text[at] == '\v' || text[at] == '\f')
                return;
            else
                ++at;
    }

    std::uint32_t AddNode(JsonKind kind, std::size_t start) {
        tree.nodes.push_back({static_cast<std::uint32_t>(start), 0, 0, kind, false});
        return static_cast<std::uint32_t>(tree.nodes.size() - 1);
    }

    void CloseNode(std::uint32_t number, std::size_t end) {
        JsonTree::Node& node = tree.nodes[number];
        node.length = static_cast<std::uint32_t>(end - node.start);
        node.next = static_cast<std::uint32_t>(tree.nodes.size());
    }

    void ParseValue(int depth) {
        SkipBlanks();
        const char c = Peek();
        if (c == '{' || c == '[')
            ParseContainer(c == '{', depth + 1);
        else if (c == '"')
            ParseString();
        else if (c == '-' || IsDigit(c))
            ParseNumber();
        else
            ParseWord();
    }

    void ParseContainer(bool isObject, int depth) {
        if (depth > deepestJson)
            Fail(limitRule, at, "more than 32 levels of arrays and objects");
        const std::uint32_t node = AddNode(isObject ? JsonKind::object : JsonKind::array, at);
        const char closing = isObject ? '}' : ']';
        ++at;
        SkipBlanks();
        if (Peek() != closing)
            ParseEntries(isObject, closing, depth);
        ++at;
        CloseNode(node, at);
    }

    void ParseEntries(bool isObject, char closing, int depth) {
        for (;;) {
            if (isObject)
                ParseKey();
            ParseValue(depth);
            SkipBlanks();
            if (Peek() == closing && at < text.size())
                return;
            if (Peek() != ',')
                FailExpecting(isObject ? "a comma or a closing brace"
                                       : "a comma or a closing bracket");
            const std::size_t comma = at++;
            SkipBlanks();
            if (Peek() == closing && at < text.size())
                Fail(syntaxRule, comma, "a comma behind the last one, which JSON has not");
        }
    }

    void ParseKey() {
        SkipBlanks();
        if (Peek() != '"')
            FailExpecting("a key in double quotes");
        ParseString();
        SkipBlanks();
        if (Peek() != ':')
            FailExpecting("a colon");
        ++at;
    }

    void ParseString() {
        const std::uint32_t node = AddNode(JsonKind::string, ++at);
        for (;;) {
            if (at == text.size())
                Fail(syntaxRule, at, "expected a closing double quote, got the end of the text");
            const char c = text[at];
            if (c == '"')
                break;
            if (c >= 0 && c < ' ')
                Fail(syntaxRule, at, "a control character in a string, which has to be escaped");
            ++at;
            if (c == '\\') {
                tree.nodes[node].escaped = true;
                SkipEscape();
            }
        }
        CloseNode(node, at);
        ++at;
    }

    void SkipEscape() {
        if (Peek() == 'u') {
            SkipUnicodeEscape();
            return;
        }
        if (at == text.size()
            || std::string_view("\"\\/bfnrt").find(text[at]) == std::string_view::npos)
            Fail(syntaxRule, at, "expected one of \" \\ / b f n r t u behind a backslash");
        ++at;
    }

    /// Reads four hexadecimal digits and returns their value.
    unsigned TakeHexDigits() {
        unsigned value = 0;
        for (int digit = 0; digit < 4; ++digit, ++at) {
            if (!IsHexDigit(Peek()))
                FailExpecting("four hexadecimal digits");
            value = 16 * value
                    + static_cast<unsigned>(IsDigit(text[at]) ? text[at] - '0'
                                                              : (text[at] | 0x20) - 'a' + 10);
        }
        return value;
    }

    void SkipUnicodeEscape() {
        const std::size_t start = at - 1;
        ++at;
        const unsigned code = TakeHexDigits();
        if (code < 0xD800 || code >= 0xE000)
            return;
        bool paired = code < 0xDC00 && text.substr(at, 2) == "\\u";
        if (paired) {
            at += 2;
            const unsigned low = TakeHexDigits();
            paired = low >= 0xDC00 && low < 0xE000;
        }
        if (!paired)
            Fail(encodingRule, start, "half of a surrogate pair");
    }

    void SkipDigits() {
        if (!IsDigit(Peek()))
            FailExpecting("a digit");
        while (IsDigit(Peek()))
            ++at;
    }

    void ParseNumber() {
        const std::uint32_t node = AddNode(JsonKind::number, at);
        const std::size_t start = at;
        if (Peek() == '-')
            ++at;
        if (Peek() == 'I')
            FailAtWord();
        const std::size_t whole = at;
        SkipDigits();
        if (text[whole] == '0' && at > whole + 1)
            Fail(syntaxRule, whole, "a number that begins with a needless zero");
        if (Peek() == '.') {
            ++at;
            SkipDigits();
        }
        if ((Peek() | 0x20) == 'e') {
            ++at;
            at += Peek() == '+' || Peek() == '-' ? 1 : 0;
            SkipDigits();
        }
        if (at - start > longestJsonNumber)
            Fail(limitRule, start, "a number of more than 1,000 characters");
        CloseNode(node, at);
    }

    void ParseWord() {
        std::size_t end = at;
        while (end < text.size() && IsLetter(text[end]))
            ++end;
        const std::string_view word = text.substr(at, end - at);
        if (word != "true" && word != "false" && word != "null")
            FailAtWord();
        const std::uint32_t node = AddNode(word == "null" ? JsonKind::null : JsonKind::boolean, at);
        at = end;
        CloseNode(node, at);
    }

    [[noreturn]] void FailAtWord() const {
        const std::string_view rest = text.substr(at);
        for (const char* name : {"NaN", "nan", "Infinity", "inf"})
            if (rest.starts_with(name))
                Fail(syntaxRule, at,
                     std::string("expected a value, got ") + name + ", which is no number in JSON");
        if (rest.starts_with('\''))
            Fail(syntaxRule, at,
                 "expected a value, got an apostrophe; a string stands in double quotes");
        FailExpecting("a value");
    }

    std::string_view text;
    JsonTree& tree;
    std::size_t at = 0;
};

/// Finds the first key of a document that occurs twice in its object.
class DuplicateSearch {
public:
    explicit DuplicateSearch(const JsonTree& source) : tree(source) {}

    std::optional<Fault> Run() {
        Visit(JsonValue(tree, 0), "");
        if (pointer.empty())
            return std::nullopt;
        return Fault{"duplicate-key", "the object has this key already", pointer, std::nullopt};
    }

private:
    void Visit(JsonValue value, const std::string& path) {
        if (value.Kind() == JsonKind::object)
            VisitObject(value, path);
        else if (value.Kind() == JsonKind::array)
            VisitArray(value, path);
    }

    static bool HoldsObjects(JsonValue value) {
        return value.Kind() == JsonKind::object || value.Kind() == JsonKind::array;
    }

    void VisitArray(JsonValue array, const std::string& path) {
        std::size_t place = 0;
        array.ForEachItem([&](JsonValue item) {
            if (HoldsObjects(item))
                Visit(item, path + "/" + std::to_string(place));
            ++place;
        });
    }

    void VisitObject(JsonValue object, const std::string& path) {
        struct Key {
            std::string text;
            std::size_t offset;
        };
        std::vector<Key> keys;
        object.ForEachMember([&](JsonValue key, JsonValue value) {
            keys.push_back({key.Text(), key.Offset()});
            if (HoldsObjects(value))
                Visit(value, path + PointerPart(keys.back().text));
        });
        std::stable_sort(keys.begin(), keys.end(),
                         [](const Key& a, const Key& b) { return a.text < b.text; });
        for (std::size_t i = 1; i < keys.size(); ++i) {
            if (keys[i].text != keys[i - 1].text || keys[i].offset >= first)
                continue;
            first = keys[i].offset;
            pointer = path + PointerPart(keys[i].text);
        }
    }

    const JsonTree& tree;
    std::size_t first = largestJson; ///< offset of the first one found
    std::string pointer;
};

} // namespace

std::optional<Fault> ParseJson(std::string_view text, JsonTree& tree) {
    tree.text = text;
    tree.nodes.clear();
    if (text.size() > largestJson)
        return TooLargeJson();
    try {
        JsonParser(text, tree).Run();
    } catch (const JsonError& error) {
        const FilePlace place = PlaceOf(text, error.offset);
        if (error.rule == limitRule)
            return Fault{error.rule, error.text + ", in line " + std::to_string(place.line), "",
                         std::nullopt};
        return Fault{error.rule, error.text, "", place};
    }
    return DuplicateSearch(tree).Run();
}

Fault TooLargeJson() {
    return {limitRule, "the text is larger than 64 MiB", "", std::nullopt};
}

} // namespace strativo
