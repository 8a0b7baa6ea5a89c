#include "files/ConstructionWriter.h"
#include "files/ProjectSnapshot.h"
#include "fuzz/Invariants.h"
#include "fuzz/Targets.h"

#include <cstring>
#include <string>

namespace strativo::fuzz {

namespace {

constexpr std::string_view mark = "Strativo recovery copy\n";

/// The bytes with the mark, version and digest of a snapshot before them, so that the damage is
/// not seen at the first look.
std::string WithSoundHead(std::string_view body) {
    const std::uint32_t version = 1;
    const std::uint64_t digest = DigestOf(body);
    std::string bytes(mark);
    bytes.append(reinterpret_cast<const char*>(&version), sizeof version);
    bytes.append(reinterpret_cast<const char*>(&digest), sizeof digest);
    return bytes.append(body);
}

/// What is read is a sound project, can be saved, and gives the same snapshot; what is refused
/// leaves the project alone.
void RequireReadOrRefused(std::string_view bytes) {
    Project project;
    project.constructionFile = "untouched";
    project.clipboard[1].name = "CLIPPED";
    try {
        const SnapshotHead head = ReadSnapshot(bytes, project);
        RequireInvariants(project);
        RequireInvariants(project.standardLibrary);
        RequireInvariants(project.userLibrary);
        Require(WriteSnapshot(project, head) == bytes, "a snapshot read gives the same bytes");
        Require(!ContentBytes(project).empty(), "there is always some content");
        FormatConstructionFile(project);
    } catch (const DamagedSnapshot&) {
        Require(project.constructionFile == "untouched" && project.constructionCount == 0,
                "a refused snapshot changes nothing");
    }
    Require(project.clipboard[1].name == "CLIPPED", "the clipboard is not the snapshot's");
}

} // namespace

void RecoveryCopy(std::string_view bytes) {
    RequireReadOrRefused(bytes);
    const std::size_t head = mark.size() + sizeof(std::uint32_t) + sizeof(std::uint64_t);
    RequireReadOrRefused(WithSoundHead(
        bytes.starts_with(mark) && bytes.size() >= head ? bytes.substr(head) : bytes));
}

} // namespace strativo::fuzz
