#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace strativo {

using Json = nlohmann::ordered_json;

/// Writes one document piece by piece, so that a large one never stands in memory as a whole.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& stream) : out(stream) {}

    /// Opens an object ("{") or array ("["), as an item of the one that is open.
    void Begin(char bracket);
    void End(char bracket);
    /// Names the next value or opened object or array.
    void Key(const char* name);
    /// A value, on one line. Its strings are UTF-8, its numbers are written as the shortest decimal
    /// that reads back to the same double.
    void Value(const Json& value);
    void Member(const char* name, const Json& value) {
        Key(name);
        Value(value);
    }

private:
    void StartItem();
    void StartLine();

    std::ostream& out;
    std::string text;
    std::vector<bool> hasItems; ///< of each object or array that is open
    bool afterKey = false;
};

} // namespace strativo
