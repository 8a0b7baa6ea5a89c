#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace strativo {

/// The least that a program does that looks at every line.
inline std::size_t CountLineEnds(std::string_view bytes) {
    std::size_t count = 0;
    while (const void* found = std::memchr(bytes.data(), '\n', bytes.size())) {
        ++count;
        bytes.remove_prefix(static_cast<std::size_t>(static_cast<const char*>(found) - bytes.data())
                            + 1);
    }
    return count;
}

} // namespace strativo
