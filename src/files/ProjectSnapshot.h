#pragma once

#include "model/Project.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace strativo {

/// What a snapshot tells apart from the project that it holds.
struct SnapshotHead {
    std::int64_t time = 0;           ///< when it was made, seconds since 1970
    std::string originalPath;        ///< absolute; "" for a project without a file
    std::string standardLibraryPath; ///< absolute; "" none
    std::string userLibraryPath;     ///< absolute; "" none
    std::uint64_t savedContent = 0;  ///< digest of the content that was last read or written

    bool operator==(const SnapshotHead&) const = default;
};

/// Thrown when the bytes are no intact snapshot; what() says why, worded as the end of a sentence.
class DamagedSnapshot : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The whole project as it is in memory, except for screen, clipboard and settings. Every byte of a
/// text and every bit of a number comes back.
std::string WriteSnapshot(const Project& project, const SnapshotHead& head);

/// The same in two steps, the first of which alone needs the project: without the digest, by which
/// damage is noticed, and with it.
std::string WriteUnsealedSnapshot(const Project& project, const SnapshotHead& head);
void SealSnapshot(std::string& bytes);

/// Replaces the project with the content of a snapshot; screen, clipboard and settings stay. Throws
/// DamagedSnapshot, leaving the project as it was. Uses memory in proportion to the bytes.
SnapshotHead ReadSnapshot(std::string_view bytes, Project& project);

/// The bytes of everything that a construction file of the project is made from: constructions in
/// use, named glass types, comments and the libraries' names. Equal content gives equal bytes.
std::string ContentBytes(const Project& project);

/// A digest of these bytes, the same on every run and machine.
std::uint64_t ContentDigest(const Project& project);

/// A digest that changes with any single byte.
std::uint64_t DigestOf(std::string_view bytes);

} // namespace strativo
