#pragma once

#include <cstdint>

namespace strativo {

/// Shows whether a file is still the one that was read or written.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = -1;    ///< bytes; -1: there is no file
    std::int64_t modified = 0; ///< nanoseconds since 1970

    bool operator==(const FileStamp&) const = default;
};

} // namespace strativo
