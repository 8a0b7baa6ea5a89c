#include "exchange/EpJson.h"

#include "calc/CavityTypes.h"
#include "exchange/EpNames.h"
#include "exchange/Fault.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace strativo {

namespace {

constexpr int mostLayers = 10;
constexpr double leastResistance = 0.001; ///< m2 K/W, of a material without mass
constexpr double leastSpecificHeat = 100; ///< J/kg K, of a massive material

struct Reason {
    const char* rule = nullptr; ///< null: none
    std::string text;
};

std::vector<const Layer*> LayersOf(const Construction& construction) {
    std::vector<const Layer*> layers;
    for (const int slot : FilledSlots(construction))
        layers.push_back(&construction.layers[slot]);
    return layers;
}

bool IsCavity(const Layer& layer) {
    return layer.materialCode < 0;
}

/// m2 K/W.
double CavityResistanceOf(const Layer& layer) {
    constexpr double ordinary = 0.11;
    constexpr double lowEmissivity = 0.18;
    if (layer.materialCode == resistanceCavity)
        return layer.thickness;
    return layer.materialCode == -2 || layer.materialCode == -6 ? lowEmissivity : ordinary;
}

bool HasMass(const Layer& layer) {
    return layer.density > 0 && layer.specificHeat >= leastSpecificHeat;
}

double Metres(const Layer& layer) {
    return layer.thickness / 1000;
}

double ResistanceOf(const Layer& layer) {
    return Metres(layer) / AsDecimal(layer.conductivity);
}

Reason ReasonOfCavity(const Layer& layer, bool atSurface) {
    if (!IsNamedCavity(layer.materialCode))
        return {"unknown-cavity",
                "its cavity type " + std::to_string(layer.materialCode) + " is not known"};
    if (atSurface)
        return {"cavity-at-surface", "its first or last layer is a cavity"};
    if (layer.materialCode == resistanceCavity && !(layer.thickness > 0))
        return {"zero-thickness", "a cavity of it has no resistance"};
    return {};
}

Reason ReasonOfMaterial(const Layer& layer) {
    const std::string name = Quoted(ToUtf8(layer.name));
    if (layer.conductivity == 0 && layer.density == 0 && layer.specificHeat == 0)
        return {"unlinked-material", "the material of its layer " + name + " is not known"};
    if (!(layer.conductivity > 0))
        return {"no-conductivity", "its layer " + name + " has no conductivity"};
    if (!(layer.thickness > 0))
        return {"zero-thickness", "its layer " + name + " has no thickness"};
    if (!HasMass(layer) && ResistanceOf(layer) < leastResistance)
        return {"resistance-too-small",
                "its layer " + name + " without mass has a resistance below 0.001 m2K/W"};
    if (!HasMass(layer) && !std::isfinite(ResistanceOf(layer)))
        return {"resistance-too-large",
                "its layer " + name + " without mass has a resistance beyond all numbers"};
    return {};
}

Reason ReasonToLeaveOut(const Construction& construction) {
    if (construction.type == transparentType)
        return {"transparent",
                "it is transparent, and construction files do not say which glass it has"};
    const std::vector<const Layer*> layers = LayersOf(construction);
    if (layers.empty())
        return {"no-layers", "it has no layers"};
    if (layers.size() > mostLayers)
        return {"too-many-layers", "it has more than 10 layers"};
    for (const Layer* layer : layers) {
        const bool atSurface = layer == layers.front() || layer == layers.back();
        Reason reason =
            IsCavity(*layer) ? ReasonOfCavity(*layer, atSurface) : ReasonOfMaterial(*layer);
        if (reason.rule != nullptr)
            return reason;
    }
    return {};
}

class EpModelMaker {
public:
    EpModelMaker(const Project& source, EpOptions asked) : project(source), options(asked) {}

    EpModel Run() {
        for (const int number : ConstructionsInUse(project))
            TakeConstruction(number);
        LeaveOutGlass(project.glassTypes, "glass type ");
        LeaveOutGlass(project.glassTypes2D, "two-dimensional glass type ");
        return std::move(model);
    }

private:
    void TakeConstruction(int number) {
        const Construction& construction = project.constructions[number];
        const Reason reason = ReasonToLeaveOut(construction);
        if (reason.rule != nullptr) {
            if (!options.opaqueOnly || construction.type != transparentType)
                LeaveOut("construction " + std::to_string(number), construction.name, reason);
            return;
        }
        std::string name = EpName(construction.name);
        if (name.empty())
            name = "Construction " + std::to_string(number);
        EpConstruction taken;
        taken.name = constructionNames.Take(name, "");
        for (const Layer* layer : LayersOf(construction))
            taken.layers.push_back(TakeMaterial(*layer));
        if (options.firstLayerInside)
            std::reverse(taken.layers.begin(), taken.layers.end());
        model.constructions.push_back(std::move(taken));
    }

    /// The name of the object for the layer, made unless one with the same values exists.
    std::string TakeMaterial(const Layer& layer) {
        EpMaterial material = ValuesOf(layer);
        material.name = EpName(layer.name);
        if (material.name.empty())
            material.name = "Material " + std::to_string(layer.materialCode);
        const std::string ending = EndingOf(layer);
        std::string& taken = materials[WithName(material, material.name + ending)];
        if (taken.empty()) {
            taken = materialNames.Take(material.name, ending);
            model.materials.push_back(WithName(std::move(material), taken));
        }
        return taken;
    }

    static EpMaterial WithName(EpMaterial material, std::string name) {
        material.name = std::move(name);
        return material;
    }

    static EpMaterial ValuesOf(const Layer& layer) {
        EpMaterial material;
        if (IsCavity(layer)) {
            material.kind = EpMaterialKind::airGap;
            material.resistance = CavityResistanceOf(layer);
        } else if (!HasMass(layer)) {
            material.kind = EpMaterialKind::noMass;
            material.resistance = ResistanceOf(layer);
        } else {
            material.thickness = Metres(layer);
            material.conductivity = AsDecimal(layer.conductivity);
            material.density = layer.density;
            material.specificHeat = layer.specificHeat;
        }
        return material;
    }

    static std::string EndingOf(const Layer& layer) {
        if (!IsCavity(layer))
            return " (" + FormatGeneral(layer.thickness) + " mm)";
        if (layer.materialCode == resistanceCavity)
            return " (" + FormatGeneral(layer.thickness) + " m2K/W)";
        return "";
    }

    template <class Glass>
    void LeaveOutGlass(const NumberedList<Glass>& types, const std::string& what) {
        for (int number = 1; number <= types.Size(); ++number)
            if (!types[number].name.empty() && !options.opaqueOnly)
                LeaveOut(what + std::to_string(number), types[number].name,
                         {"glass-type", "it has no thickness, visible values and reflectances"});
    }

    void LeaveOut(const std::string& what, const std::string& name, const Reason& reason) {
        model.leftOut.push_back(
            {what + " " + Excerpt(ToUtf8(name)) + " left out: " + reason.text, reason.rule});
    }

    const Project& project;
    EpOptions options;
    EpModel model;
    std::map<EpMaterial, std::string> materials; ///< the name of each material in the model
    EpNames materialNames;
    EpNames constructionNames;
};

} // namespace

EpModel MakeEpModel(const Project& project, EpOptions options) {
    return EpModelMaker(project, options).Run();
}

} // namespace strativo
