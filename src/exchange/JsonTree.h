#pragma once

#include "exchange/Fault.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

enum class JsonKind : std::uint8_t { null, boolean, number, string, array, object };

/// A parsed JSON text as a list of its values and keys in document order. It refers to the text,
/// which must outlive it, so that a value of a large document takes only 16 bytes.
class JsonTree {
public:
    struct Node {
        std::uint32_t start;  ///< offset in the text; for a string, after its quote
        std::uint32_t length; ///< bytes, without quotes and brackets
        std::uint32_t next;   ///< node after this one and everything in it
        JsonKind kind;
        bool escaped; ///< a string that holds escapes
    };

    std::string_view text;
    std::vector<Node> nodes;
};

/// One value of a tree, as cheap to copy as a pointer.
class JsonValue {
public:
    JsonValue(const JsonTree& owner, std::uint32_t nodeNumber) : tree(&owner), number(nodeNumber) {}

    JsonKind Kind() const { return Node().kind; }
    std::size_t Offset() const { return Node().start; }
    /// A number, true, false or null as written; a string with its escapes.
    std::string_view Raw() const { return tree->text.substr(Node().start, Node().length); }
    /// A string's or key's characters, in UTF-8.
    std::string Text() const;

    /// Calls act(item) for each item of an array.
    template <class Action>
    void ForEachItem(Action act) const {
        for (std::uint32_t at = number + 1; at != Node().next; at = tree->nodes[at].next)
            act(JsonValue(*tree, at));
    }
    /// Calls act(key, value) for each member of an object.
    template <class Action>
    void ForEachMember(Action act) const {
        for (std::uint32_t at = number + 1; at != Node().next; at = tree->nodes[at + 1].next)
            act(JsonValue(*tree, at), JsonValue(*tree, at + 1));
    }
    std::size_t ItemCount() const;

private:
    const JsonTree::Node& Node() const { return tree->nodes[number]; }

    const JsonTree* tree;
    std::uint32_t number;
};

inline constexpr std::size_t largestJson = std::size_t{64} << 20; ///< bytes
inline constexpr int deepestJson = 32;                            ///< arrays and objects
inline constexpr std::size_t longestJsonNumber = 1000;            ///< characters

/// Parses a text according to RFC 8259, with or without a byte order mark, into the tree. Returns
/// the first fault if there is one: json-syntax, json-encoding, json-limit or duplicate-key.
std::optional<Fault> ParseJson(std::string_view text, JsonTree& tree);

/// The fault of a text beyond the largest size, which need not be read for it.
Fault TooLargeJson();

/// A key as a part of a JSON pointer.
std::string PointerPart(std::string_view key);

} // namespace strativo
