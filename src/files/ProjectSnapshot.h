#pragma once

#include "model/Project.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace strativo {

/// What a snapshot says beside the project that it holds.
struct SnapshotHead {
    std::int64_t time = 0;           ///< when it was made, seconds since 1970
    std::string originalPath;        ///< absolute; "" for a project without a file
    std::string standardLibraryPath; ///< absolute; "" none
    std::string userLibraryPath;     ///< absolute; "" none
    std::uint64_t savedContent = 0;  ///< digest of the content that was last read or written

    bool operator==(const SnapshotHead&) const = default;
};

/// The bytes are no snapshot, or not as they were written; what() says why, as a sentence's end.
class DamagedSnapshot : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The whole project as it is in memory, but for screen, clipboard and settings: any byte in any
/// text comes back, and every number bit by bit.
std::string WriteSnapshot(const Project& project, const SnapshotHead& head);

/// Gives the project what a snapshot holds; screen, clipboard and settings stay. Throws
/// DamagedSnapshot, with the project as it was. Takes memory in proportion to the bytes.
SnapshotHead ReadSnapshot(std::string_view bytes, Project& project);

/// What a construction file of the project is made from: constructions in use, named glass types,
/// comments and the libraries' names. Equal bytes, equal content.
std::string ContentBytes(const Project& project);

/// A digest of these bytes, the same at any time and place.
std::uint64_t ContentDigest(const Project& project);

/// A digest of bytes that no change of a single byte leaves as it was.
std::uint64_t DigestOf(std::string_view bytes);

} // namespace strativo
