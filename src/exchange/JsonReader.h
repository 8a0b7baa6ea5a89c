#pragma once

#include "exchange/JsonTree.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace strativo {

/// A key that an object may have, with the owner's function for its value. If the function is null,
/// the value is only checked to be of its kind.
template <class Owner>
struct JsonKey {
    std::string_view key;
    JsonKind kind;
    const char* expected; ///< the expected kind of value as messages name it
    bool required;
    void (Owner::*read)(JsonValue value);
};

/// Reads values of a JSON text and collects their faults.
class JsonReader {
public:
    explicit JsonReader(FaultList& list) : faults(list) {}

    /// Passes each member with a key in the table to the owner. False if the value is not an
    /// object.
    template <class Keys, class Owner>
    bool ReadObject(JsonValue object, const Keys& keys, Owner& owner) {
        if (!Check(object, JsonKind::object, "an object"))
            return false;
        object.ForEachMember([&](JsonValue key, JsonValue value) {
            const std::string name = key.Text();
            for (const auto& entry : keys) {
                if (entry.key != name)
                    continue;
                Inside(entry.key, [&] {
                    if (Check(value, entry.kind, entry.expected) && entry.read != nullptr)
                        (owner.*entry.read)(value);
                });
                return;
            }
            if (name != "$schema" && !name.starts_with("x-"))
                FailUnknown(key, name, Names(keys));
        });
        for (const auto& entry : keys)
            if (entry.required && !Has(object, entry.key))
                FailMissing(object, entry.key, entry.expected);
        return true;
    }

    /// Calls act(item) for each item of an array, while messages know the item's place.
    template <class Action>
    void ReadItems(JsonValue array, Action act) {
        std::size_t place = 0;
        array.ForEachItem([&](JsonValue item) { Inside(place++, [&] { act(item); }); });
    }

    /// Calls act() while messages point to that key, or to that place in the array.
    template <class Action>
    void Inside(std::variant<std::string_view, std::size_t> step, Action act) {
        const char* const before = expected;
        path.push_back(step);
        act();
        path.pop_back();
        expected = before;
    }

    /// True for a value of that kind; otherwise adds a fault, as it does for a number beyond a
    /// double.
    bool Check(JsonValue value, JsonKind kind, const char* what);
    void Fail(const char* rule, JsonValue value, const std::string& text);
    /// Adds the fault "expected WHAT, got VALUE" for the current key.
    void FailExpecting(const char* rule, JsonValue value, const std::string& what);

    void FailMissing(JsonValue object, std::string_view key, const char* what);

    static bool Has(JsonValue object, std::string_view key);
    static double Number(JsonValue number);
    /// A whole number within the limits.
    std::optional<int> Integer(JsonValue number, int lowest, int highest);
    /// The nearest 32-bit float.
    std::optional<float> Single(JsonValue number);
    static bool Boolean(JsonValue boolean) { return boolean.Raw() == "true"; }
    /// A string as the bytes of Windows-1252.
    std::optional<std::string> Bytes(JsonValue string);

private:
    template <class Keys>
    static std::vector<std::string_view> Names(const Keys& keys) {
        std::vector<std::string_view> names;
        for (const auto& entry : keys)
            names.push_back(entry.key);
        return names;
    }

    std::string Pointer() const;
    void FailUnknown(JsonValue key, const std::string& name,
                     const std::vector<std::string_view>& known);

    FaultList& faults;
    std::vector<std::variant<std::string_view, std::size_t>> path;
    const char* expected = "a project";
};

/// The value as messages show it: "the string "12,5"".
std::string Described(JsonValue value);

/// The known name that resembles another one; empty if none does.
std::string_view NearestName(std::string_view name, const std::vector<std::string_view>& known);

} // namespace strativo
