#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace strativo::fuzz {

/// Takes values from the bytes of an input one after the other; behind its end all are 0.
class FuzzBytes {
public:
    explicit FuzzBytes(std::string_view bytes) : rest(bytes) {}

    bool AtEnd() const { return rest.empty(); }

    int Byte() {
        if (rest.empty())
            return 0;
        const auto byte = static_cast<unsigned char>(rest.front());
        rest.remove_prefix(1);
        return byte;
    }
    bool Flag() { return (Byte() & 1) != 0; }
    /// From 0 to below the limit.
    int Below(int limit) { return Byte() % limit; }

    template <class T>
    T Value() {
        T value{};
        const std::size_t length = std::min(sizeof value, rest.size());
        std::memcpy(&value, rest.data(), length);
        rest.remove_prefix(length);
        return value;
    }

    /// A text of up to 31 bytes, after a byte for its length.
    std::string Text() {
        constexpr int longest = 31;
        const auto wanted = static_cast<std::size_t>(Below(longest + 1));
        const std::size_t length = std::min(wanted, rest.size());
        std::string text(rest.substr(0, length));
        rest.remove_prefix(length);
        return text;
    }

private:
    std::string_view rest;
};

} // namespace strativo::fuzz
