#include "files/SnapshotFields.h"

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <utility>

namespace strativo {

namespace {

// Numbers are written as they are in memory. A machine with the other byte order takes such a
// snapshot for one of an unknown version.
class SnapshotOut {
public:
    template <class Type>
    using Record = const Type;

    explicit SnapshotOut(std::size_t sizeHint) : bytes(sizeHint, '\0') {}

    template <class... Fields>
    void operator()(const Fields&... fields) {
        (Value(fields), ...);
    }
    void Count(std::size_t count) { Value(static_cast<std::uint32_t>(count)); }
    void Put(std::string_view text) { Put(text.data(), text.size()); }

    /// All that was written; nothing can be written any more.
    std::string Take() {
        bytes.resize(used);
        return std::move(bytes);
    }

private:
    // The program stands still meanwhile, so a number costs a comparison and a copy, and no call.
    void Put(const char* data, std::size_t size) {
        if (size > bytes.size() - used)
            bytes.resize(2 * bytes.size() + size);
        std::memcpy(bytes.data() + used, data, size);
        used += size;
    }
    template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
    void Value(const Number& number) {
        Put(reinterpret_cast<const char*>(&number), sizeof number);
    }
    void Value(const std::string& text) {
        Count(text.size());
        Put(text);
    }
    void Value(const CommentLines& lines) {
        Count(lines.size());
        for (const std::string& line : lines)
            Value(line);
    }
    template <class Item, int First, int Last>
    void Value(const NumberedTable<Item, First, Last>& table) {
        for (const Item& item : table)
            Value(item);
    }

    std::string bytes; ///< longer than what was written
    std::size_t used = 0;
};

/// The digest stands behind the mark and the version, and is of all that follows it.
constexpr std::size_t digestPlace = snapshotMark.size() + sizeof snapshotVersion;
constexpr std::size_t bodyPlace = digestPlace + sizeof(std::uint64_t);

void WriteLayers(SnapshotOut& out, const LayerSlots& layers, bool withMarks) {
    out.Count(static_cast<std::size_t>(layers.HighestUsed()));
    for (int slot = 1; slot <= layers.HighestUsed(); ++slot) {
        LayerFields(out, layers[slot]);
        if (withMarks)
            out(layers[slot].selected);
    }
}

void WriteConstruction(SnapshotOut& out, const Construction& construction) {
    out(construction.name, construction.type, construction.currentLayer);
    WindowFields(out, construction.window);
    WriteLayers(out, construction.layers, true);
}

void WriteLibrary(SnapshotOut& out, const MaterialLibrary& library) {
    const int count = MaterialCount(library);
    out.Count(static_cast<std::size_t>(count));
    for (int slot = 1; slot <= count; ++slot)
        MaterialFields(out, library[slot]);
}

void WriteOwned(SnapshotOut& out, const OwnedComments& comments) {
    int lastOwner = comments.LastOwner();
    while (lastOwner >= 0 && comments.Of(lastOwner).empty())
        --lastOwner; // their comments were dropped
    out.Count(static_cast<std::size_t>(lastOwner) + 1);
    for (int owner = 0; owner <= lastOwner; ++owner)
        out(comments.Of(owner));
}

template <class Glass>
void WriteGlassTypes(SnapshotOut& out, const NumberedList<Glass>& types) {
    out.Count(static_cast<std::size_t>(types.Size()));
    for (const Glass& type : types)
        GlassFields(out, type);
}

std::size_t SizeHint(const Project& project) {
    constexpr std::size_t ofConstruction = 600;
    constexpr std::size_t ofTheRest = 20000;
    return ofTheRest + ofConstruction * static_cast<std::size_t>(project.constructions.Size());
}

void WriteBody(SnapshotOut& out, const Project& project, const SnapshotHead& head) {
    HeadFields(out, head);
    FileFields(out, project);
    out.Count(static_cast<std::size_t>(project.constructions.Size()));
    for (const Construction& construction : project.constructions)
        WriteConstruction(out, construction);
    WriteGlassTypes(out, project.glassTypes);
    WriteGlassTypes(out, project.glassTypes2D);
    WriteLibrary(out, project.standardLibrary);
    WriteLibrary(out, project.userLibrary);
    CommentFields(out, project.comments);
    WriteOwned(out, project.comments.constructions);
    WriteOwned(out, project.comments.glassTypes);
    WriteOwned(out, project.comments.glassTypes2D);
    StateFields(out, project);
}

void AddConstructions(SnapshotOut& out, const Project& project) {
    for (const int number : ConstructionsInUse(project)) {
        const Construction& construction = project.constructions[number];
        out(number, construction.name, construction.type);
        out(project.comments.constructions.Of(number));
        WriteLayers(out, construction.layers, false);
    }
}

template <class Glass>
void AddGlassTypes(SnapshotOut& out, const NumberedList<Glass>& types,
                   const OwnedComments& comments) {
    out(int{0}); // end marker: no construction has this number
    for (int number = 1; number <= types.Size(); ++number) {
        if (types[number].name.empty())
            continue;
        GlassFields(out, types[number]);
        out(comments.Of(number));
    }
}

} // namespace

std::string WriteUnsealedSnapshot(const Project& project, const SnapshotHead& head) {
    SnapshotOut out(SizeHint(project));
    out.Put(snapshotMark);
    out(snapshotVersion, std::uint64_t{0});
    WriteBody(out, project, head);
    return out.Take();
}

void SealSnapshot(std::string& bytes) {
    const std::uint64_t digest = DigestOf(std::string_view(bytes).substr(bodyPlace));
    std::memcpy(bytes.data() + digestPlace, &digest, sizeof digest);
}

std::string WriteSnapshot(const Project& project, const SnapshotHead& head) {
    std::string bytes = WriteUnsealedSnapshot(project, head);
    SealSnapshot(bytes);
    return bytes;
}

std::string ContentBytes(const Project& project) {
    SnapshotOut out(SizeHint(project));
    AddConstructions(out, project);
    AddGlassTypes(out, project.glassTypes, project.comments.glassTypes);
    AddGlassTypes(out, project.glassTypes2D, project.comments.glassTypes2D);
    CommentFields(out, project.comments);
    out(project.standardLibraryFile, project.userLoaded ? project.userLibraryFile : std::string());
    return out.Take();
}

std::uint64_t ContentDigest(const Project& project) {
    return DigestOf(ContentBytes(project));
}

/// Each step is reversible if the word is known, so two texts of equal length that differ in a
/// single word never have the same digest.
std::uint64_t DigestOf(std::string_view bytes) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U; // odd, with half of its bits set
    constexpr int halfTheBits = 32;
    std::uint64_t digest = bytes.size();
    while (!bytes.empty()) {
        std::uint64_t word = 0;
        const std::size_t length = std::min(sizeof word, bytes.size());
        std::memcpy(&word, bytes.data(), length);
        bytes.remove_prefix(length);
        digest = (digest ^ word) * factor;
        digest ^= digest >> halfTheBits;
    }
    return digest;
}

} // namespace strativo
