#pragma once

#include "model/Project.h"

#include <string>
#include <tuple>
#include <vector>

namespace strativo {

// The constructions of a project as the objects of epJSON, the input of EnergyPlus.

enum class EpMaterialKind { massive, noMass, airGap };

struct EpMaterial {
    EpMaterialKind kind = EpMaterialKind::massive;
    std::string name;        ///< ASCII, at most 99 characters, unique
    double resistance = 0;   ///< m2 K/W; of noMass and airGap
    double thickness = 0;    ///< m; this and the following are those of a massive one
    double conductivity = 0; ///< W/m K
    double density = 0;      ///< kg/m3
    double specificHeat = 0; ///< J/kg K

    bool operator<(const EpMaterial& other) const {
        const auto fields = [](const EpMaterial& material) {
            return std::tie(material.kind, material.name, material.resistance, material.thickness,
                            material.conductivity, material.density, material.specificHeat);
        };
        return fields(*this) < fields(other);
    }
};

struct EpConstruction {
    std::string name;                ///< like that of a material
    std::vector<std::string> layers; ///< names of materials, the outermost one first
};

/// What such a file cannot hold.
struct LeftOut {
    std::string text; ///< UTF-8, one line
    std::string rule;
};

struct EpModel {
    std::vector<EpMaterial> materials; ///< in the order of their first layers
    std::vector<EpConstruction> constructions;
    std::vector<LeftOut> leftOut; ///< constructions, then glass types
};

struct EpOptions {
    bool firstLayerInside = false;
    bool opaqueOnly = false; ///< transparent ones are not reported
};

/// The opaque constructions in use with their materials, each material once, and what is left out.
EpModel MakeEpModel(const Project& project, EpOptions options);

} // namespace strativo
