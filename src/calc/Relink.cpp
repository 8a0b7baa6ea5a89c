#include "calc/Relink.h"

#include "calc/CavityTypes.h"
#include "calc/LayerList.h"
#include "text/Numbers.h"

#include <cmath>
#include <limits>
#include <vector>

namespace strativo {

namespace {

/// The row of each material code in a library, so that linking does not search it for every layer.
class CodeIndex {
public:
    explicit CodeIndex(const MaterialLibrary& materials) : library(materials), rows(codeCount, 0) {
        const int count = MaterialCount(library);
        for (int row = 1; row <= count; ++row)
            if (IsLayerCode(library[row].code))
                rows[static_cast<std::size_t>(library[row].code)] = static_cast<std::int8_t>(row);
    }

    const Material* Find(std::int16_t code) const {
        const int row = rows[static_cast<std::size_t>(code)];
        return row > 0 ? &library[row] : nullptr;
    }

private:
    static constexpr std::size_t codeCount = std::numeric_limits<std::int16_t>::max() + 1;

    static bool IsLayerCode(double code) {
        return code > 0 && code < static_cast<double>(codeCount) && code == std::floor(code);
    }

    const MaterialLibrary& library;
    std::vector<std::int8_t> rows;
};

void LinkLayer(Layer& layer, const CodeIndex& index) {
    const Material* material = index.Find(layer.materialCode);
    if (material == nullptr)
        return;
    layer.conductivity = ToSingle(material->conductivity);
    layer.name = material->name;
    layer.density = material->density;
    layer.specificHeat = material->specificHeat;
}

void LinkConstruction(Construction& construction, const CodeIndex& standard,
                      const CodeIndex& user) {
    construction.currentLayer = 1;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
        Layer& layer = construction.layers.Edit(slot);
        if (layer.materialCode > 0)
            LinkLayer(layer, layer.library == userLibraryNumber ? user : standard);
        else if (layer.materialCode < 0)
            layer.name = CavityLayerName(layer.materialCode);
    }
}

} // namespace

void RelinkLayers(Project& project) {
    const CodeIndex standard(project.standardLibrary);
    const CodeIndex user(project.userLibrary);
    for (const int number : ConstructionsInUse(project)) {
        LinkConstruction(project.constructions[number], standard, user);
        project.currentConstruction = number;
        RefreshLayerList(project.constructions[number]);
    }
}

} // namespace strativo
