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

    template <class... Fields>
    void operator()(const Fields&... fields) {
        (Value(fields), ...);
    }
    void Count(std::size_t count) { Value(static_cast<std::uint32_t>(count)); }

    std::string bytes;

private:
    template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
    void Value(const Number& number) {
        bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    void Value(const std::string& text) {
        Count(text.size());
        bytes.append(text);
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
};

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
    constexpr std::size_t ofConstruction = 400;
    constexpr std::size_t ofTheRest = 20000;
    return ofTheRest + ofConstruction * static_cast<std::size_t>(project.constructions.Size());
}

std::string Body(const Project& project, const SnapshotHead& head) {
    SnapshotOut out;
    out.bytes.reserve(SizeHint(project));
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
    return std::move(out.bytes);
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

std::string WriteSnapshot(const Project& project, const SnapshotHead& head) {
    const std::string body = Body(project, head);
    SnapshotOut out;
    out.bytes.reserve(body.size() + 64);
    out.bytes = snapshotMark;
    out(snapshotVersion, DigestOf(body));
    out.bytes += body;
    return std::move(out.bytes);
}

std::string ContentBytes(const Project& project) {
    SnapshotOut out;
    out.bytes.reserve(SizeHint(project));
    AddConstructions(out, project);
    AddGlassTypes(out, project.glassTypes, project.comments.glassTypes);
    AddGlassTypes(out, project.glassTypes2D, project.comments.glassTypes2D);
    CommentFields(out, project.comments);
    out(project.standardLibraryFile, project.userLoaded ? project.userLibraryFile : std::string());
    return std::move(out.bytes);
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
