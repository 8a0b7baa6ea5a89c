#pragma once

#include "model/NumberedTable.h"

#include <string>

namespace strativo {

/// The name that ends a library.
inline constexpr char endOfLibrary[] = "-999";
inline constexpr int standardLibraryNumber = 1;
inline constexpr int userLibraryNumber = 2;

struct Material {
    double code = 0; ///< number by which construction files refer to it; negative for a cavity
    std::string name;
    double conductivity = 0; ///< W/m C; for a cavity entry the same negative number as code
    double density = 0;      ///< kg/m3
    double specificHeat = 0; ///< J/kg C

    bool operator==(const Material&) const = default;
};

/// Materials stand in slots 1, 2, ... without gaps; the slot after the last one is named "-999".
/// Slot 0 is never used, and slots behind the end marker may hold anything.
using MaterialLibrary = NumberedTable<Material, 0, 100>;

/// Number of materials before the end marker.
int MaterialCount(const MaterialLibrary& library);

/// A library without materials.
MaterialLibrary EmptyLibrary();

} // namespace strativo
