#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace strativo {

using Json = nlohmann::ordered_json;

/// The layout of a document's lines.
enum class JsonLayout {
    document, ///< a line for each value and bracket, indented
    item,     ///< the same, as an item of an open array, without its comma
    line      ///< one line
};

/// Writes one document piece by piece, so that a large one is never in memory as a whole.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& stream, JsonLayout asked = JsonLayout::document)
        : out(stream), layout(asked) {}

    /// Opens an object ("{") or array ("["), as an item of the present one.
    void Begin(char bracket);
    void End(char bracket);
    /// Names the next value or opened object or array.
    void Key(const std::string& name);
    /// A value, on one line. Its strings are UTF-8, its numbers are written as the shortest decimal
    /// that reads back to the same double.
    void Value(const Json& value);
    void Member(const std::string& name, const Json& value) {
        Key(name);
        Value(value);
    }

private:
    void StartItem();
    void StartLine();

    std::ostream& out;
    JsonLayout layout;
    std::string text;
    std::vector<bool> hasItems; ///< of each object or array that is open
    bool afterKey = false;
};

} // namespace strativo
