#include "calc/CavityTypes.h"

#include "text/Format.h"
#include "text/RuntimeError.h"

#include <algorithm>
#include <array>

namespace strativo {

namespace {

struct CavityType {
    int code;
    const char* libraryName;
    const char* layerName;
};

/// In the order of the library. The two names of types 2, 3 and 6 differ on purpose, and so does
/// the spelling "Tyep": files and users know both.
constexpr std::array<CavityType, 6> cavityTypes = {{
    {-3, "CAVITY Type 3 width = resistance", "CAVITY Tyep 3 width = resistance"},
    {-2, "CAVITY Type 2 Low-E", "CAVITY type 2 Low-E"},
    {-1, "CAVITY Type 1 NORMAL", "CAVITY Type 1 NORMAL"},
    {-5, "CAVITY Type 5 Normal Ventilated", "CAVITY Type 5 Normal Ventilated"},
    {-6, "CAVITY Type 6 Low-e Ventilated", "CAVITY Type 6 Low-E Ventilated"},
    {-11, "CAVITY Type 11 ISO15099", "CAVITY Type 11 ISO15099"},
}};

const CavityType* FindCavityType(int code) {
    const auto* const found =
        std::find_if(cavityTypes.begin(), cavityTypes.end(),
                     [&](const CavityType& type) { return type.code == code; });
    return found == cavityTypes.end() ? nullptr : found;
}

Material& Row(MaterialLibrary& library, int row) {
    if (row > MaterialLibrary::last)
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    return library[row];
}

} // namespace

void AppendCavityEntries(MaterialLibrary& library, int row) {
    for (const CavityType& type : cavityTypes) {
        const double code = type.code;
        Row(library, row++) = {code, type.libraryName, code, 0, 0};
    }
    Row(library, row).name = endOfLibrary;
}

std::string CavityLayerName(int code) {
    if (const CavityType* type = FindCavityType(code))
        return type->layerName;
    return "Unknown type " + FormatGeneral(code);
}

bool IsNamedCavity(int code) {
    return FindCavityType(code) != nullptr;
}

} // namespace strativo
