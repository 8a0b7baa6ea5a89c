#include "files/SnapshotFields.h"

#include <cmath>
#include <cstring>
#include <type_traits>

namespace strativo {

namespace {

void Check(bool isSound) {
    if (!isSound)
        throw DamagedSnapshot("it holds what no project can");
}

class SnapshotIn {
public:
    template <class Type>
    using Record = Type;

    explicit SnapshotIn(std::string_view bytes) : rest(bytes) {}

    template <class... Fields>
    void operator()(Fields&... fields) {
        (Value(fields), ...);
    }
    /// The number of items that follow, given that each takes at least that many bytes.
    int Count(std::size_t leastBytes) {
        std::uint32_t count = 0;
        Value(count);
        Check(count <= rest.size() / leastBytes);
        return static_cast<int>(count);
    }
    bool AtEnd() const { return rest.empty(); }
    std::string_view Rest() const { return rest; }

private:
    std::string_view Take(std::size_t size) {
        if (size > rest.size())
            throw DamagedSnapshot("it ends too soon");
        const std::string_view taken = rest.substr(0, size);
        rest.remove_prefix(size);
        return taken;
    }
    template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
    void Value(Number& number) {
        std::memcpy(&number, Take(sizeof number).data(), sizeof number);
        if constexpr (std::is_floating_point_v<Number>)
            Check(std::isfinite(number));
    }
    void Value(bool& flag) {
        const char byte = Take(1).front();
        Check(byte == 0 || byte == 1);
        flag = byte == 1;
    }
    void Value(std::string& text) {
        std::uint32_t size = 0;
        Value(size);
        text = Take(size);
    }
    void Value(CommentLines& lines) {
        lines.resize(static_cast<std::size_t>(Count(sizeof(std::uint32_t))));
        for (std::string& line : lines)
            Value(line);
    }
    template <class Item, int First, int Last>
    void Value(NumberedTable<Item, First, Last>& table) {
        for (Item& item : table)
            Value(item);
    }

    std::string_view rest;
};

// The fewest bytes that each kind of record can take.
constexpr std::size_t leastLayer = 40;
constexpr std::size_t leastConstruction = 26;
constexpr std::size_t leastMaterial = 36;
constexpr std::size_t leastOwner = 4;
constexpr std::size_t leastGlassType = 100;

void ReadLayers(SnapshotIn& in, LayerSlots& layers) {
    const int count = in.Count(leastLayer);
    Check(count <= maxLayers);
    for (int slot = 1; slot <= count; ++slot) {
        Layer& layer = layers.Edit(slot);
        LayerFields(in, layer);
        in(layer.selected);
        Check(layer.library >= 0 && layer.library <= userLibraryNumber);
        const bool isFree = layer.name.empty();
        Check(isFree ? !layer.selected : slot == 1 || !layers[slot - 1].name.empty());
    }
}

void ReadConstruction(SnapshotIn& in, Construction& construction) {
    in(construction.name, construction.type, construction.currentLayer);
    WindowFields(in, construction.window);
    Check(!construction.window.open || construction.type != removedType);
    Check(construction.currentLayer >= 0 && construction.currentLayer <= maxLayers);
    ReadLayers(in, construction.layers);
}

void ReadConstructions(SnapshotIn& in, Project& project) {
    project.constructions = {};
    project.constructionCount = 0;
    project.lowestFreeHint = 1;
    for (int count = in.Count(leastConstruction); count > 0; --count) {
        Construction& construction = project.constructions[project.constructions.Append()];
        ReadConstruction(in, construction);
        project.constructionCount += construction.window.open ? 1 : 0;
    }
}

template <class Glass>
void ReadGlassTypes(SnapshotIn& in, NumberedList<Glass>& types, int& freeHint) {
    types = {};
    freeHint = 1;
    for (int count = in.Count(leastGlassType); count > 0; --count)
        GlassFields(in, types[types.Append()]);
}

void ReadLibrary(SnapshotIn& in, MaterialLibrary& library) {
    const int count = in.Count(leastMaterial);
    Check(count < MaterialLibrary::last);
    library = MaterialLibrary();
    for (int slot = 1; slot <= count; ++slot) {
        MaterialFields(in, library[slot]);
        Check(library[slot].name != endOfLibrary);
    }
    library[count + 1].name = endOfLibrary;
}

void ReadOwned(SnapshotIn& in, OwnedComments& comments) {
    const int owners = in.Count(leastOwner);
    CommentLines lines;
    for (int owner = 0; owner < owners; ++owner) {
        in(lines);
        for (std::string& line : lines)
            comments.Add(owner, std::move(line));
    }
    Check(comments.LastOwner() == owners - 1);
}

void CheckState(const Project& project) {
    const int current = project.currentConstruction;
    Check(project.constructionCount == 0 ? project.constructions.Has(current)
                                         : InUse(project, current));
    Check(project.glassTypes.Has(project.currentGlassType));
    Check(project.glassTypes2D.Has(project.currentGlassType2D));
    Check(project.glassSectionsRead >= 0 && project.glassSectionsRead2D >= 0);
    Check(project.shownLibrary == standardLibraryNumber
          || project.shownLibrary == userLibraryNumber);
}

SnapshotHead ReadBody(SnapshotIn& in, Project& project) {
    SnapshotHead head;
    HeadFields(in, head);
    FileFields(in, project);
    ReadConstructions(in, project);
    ReadGlassTypes(in, project.glassTypes, project.freeGlassHint);
    ReadGlassTypes(in, project.glassTypes2D, project.freeGlassHint2D);
    ReadLibrary(in, project.standardLibrary);
    ReadLibrary(in, project.userLibrary);
    project.comments = Comments();
    CommentFields(in, project.comments);
    ReadOwned(in, project.comments.constructions);
    ReadOwned(in, project.comments.glassTypes);
    ReadOwned(in, project.comments.glassTypes2D);
    StateFields(in, project);
    project.selectedMaterial = 0;
    Check(in.AtEnd());
    CheckState(project);
    return head;
}

} // namespace

SnapshotHead ReadSnapshot(std::string_view bytes, Project& project) {
    if (!bytes.starts_with(snapshotMark))
        throw DamagedSnapshot("it is no recovery copy");
    SnapshotIn in(bytes.substr(snapshotMark.size()));
    std::uint32_t version = 0;
    std::uint64_t digest = 0;
    in(version);
    if (version != snapshotVersion)
        throw DamagedSnapshot("another version of the program made it");
    in(digest);
    if (digest != DigestOf(in.Rest()))
        throw DamagedSnapshot("its bytes are not those that were written");
    Project read = project;
    const SnapshotHead head = ReadBody(in, read);
    project = std::move(read);
    return head;
}

} // namespace strativo
