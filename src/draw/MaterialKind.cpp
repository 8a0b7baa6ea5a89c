#include "draw/MaterialKind.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace strativo {

namespace {

struct KindWords {
    MaterialKind kind;
    std::string_view words; ///< separated by blanks, upper case
};

/// The first row with a word that the name contains decides.
constexpr std::array<KindWords, 7> kindWords = {{
    {MaterialKind::insulation,
     "WOOL INSUL POLYSTYRENE EPS XPS POLYURETHANE PHENOLIC FOAM CELLULOSE CORK CELLULAR"},
    {MaterialKind::plaster, "PLASTER GYPSUM RENDER STUCCO"},
    {MaterialKind::glass, "GLASS ACRYLIC POLYCARBONATE"},
    {MaterialKind::concrete, "CONCRETE BLOCK SCREED MORTAR CEMENT TERRAZZO"},
    {MaterialKind::masonry, "BRICK STONE GRANITE MARBLE LIMESTONE SLATE TILE CLAY"},
    {MaterialKind::wood, "WOOD TIMBER OSB PLY OAK PINE CEDAR SPRUCE BOARD"},
    {MaterialKind::metal, "STEEL ALUMINIUM COPPER ZINC LEAD IRON"},
}};

bool HasWordOf(std::string_view name, std::string_view words) {
    while (!words.empty()) {
        const auto end = std::min(words.find(' '), words.size());
        if (name.find(words.substr(0, end)) != std::string_view::npos)
            return true;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

struct KindLook {
    const char* name;
    DrawnColour colour;
};

constexpr std::array<KindLook, materialKinds> kindLooks = {{{"cavity", 0xEAF4FB},
                                                            {"insulation", 0xF3C64D},
                                                            {"glass", 0x9FD0DD},
                                                            {"masonry", 0xB9573F},
                                                            {"concrete", 0x9AA4AE},
                                                            {"wood", 0xC89A63},
                                                            {"plaster", 0xE6DFD0},
                                                            {"metal", 0x5F6B77},
                                                            {"other", 0xC9C2D4}}};

} // namespace

MaterialKind KindOf(const Layer& layer) {
    constexpr float insulating = 0.065F; // W/m C
    constexpr float metallic = 12;       // W/m C
    if (layer.conductivity < 0)
        return MaterialKind::cavity;
    if (layer.conductivity > 0 && layer.conductivity < insulating)
        return MaterialKind::insulation;
    for (const KindWords& row : kindWords)
        if (HasWordOf(layer.name, row.words))
            return row.kind;
    return layer.conductivity > metallic ? MaterialKind::metal : MaterialKind::other;
}

const char* KindName(MaterialKind kind) {
    return kindLooks.at(static_cast<std::size_t>(kind)).name;
}

DrawnColour KindColour(MaterialKind kind) {
    return kindLooks.at(static_cast<std::size_t>(kind)).colour;
}

} // namespace strativo
