#pragma once

#include "model/NumberedTable.h"

#include <cstdint>
#include <string>
#include <vector>

namespace strativo {

inline constexpr int maxLayers = 15;

struct Layer {
    std::string name;        ///< empty: the slot holds no layer
    double density = 0;      ///< kg/m3; 0 until linked to a library
    double specificHeat = 0; ///< J/kg C; 0 until linked to a library
    double thickness = 0;    ///< mm; for cavity code -3 a resistance, m2 C/W
    float conductivity = 0;  ///< W/m C; for a cavity its negative code
    float absorption = 0;    ///< solar absorption, fraction; used by transparent constructions only
    std::int16_t materialCode = 0; ///< 0 or negative: a cavity code
    std::int16_t library = 0;      ///< 1 standard, 2 user, 0 none
    bool selected = false;         ///< its line is marked in the layer list

    bool operator==(const Layer&) const = default;
};

/// The layer slots 1 to 15 of a construction. Only slots that were written to take memory, since a
/// large project has far more free slots than layers; any other slot reads as an empty layer.
class LayerSlots {
public:
    static constexpr int first = 1;
    static constexpr int last = maxLayers;

    const Layer& operator[](int slot) const {
        const bool isUsed = slot >= first && slot <= HighestUsed();
        return isUsed ? used[static_cast<std::size_t>(slot) - 1] : Unused(slot);
    }
    /// The slot, for changing it.
    Layer& Edit(int slot) {
        const bool isUsed = slot >= first && slot <= HighestUsed();
        return isUsed ? used[static_cast<std::size_t>(slot) - 1] : Use(slot);
    }
    /// Empties the slots from this one to the last.
    void ClearFrom(int slot);
    /// Number of the highest slot that was written to; all above are empty.
    int HighestUsed() const { return static_cast<int>(used.size()); }

    bool operator==(const LayerSlots&) const = default;

private:
    static const Layer& Unused(int slot);
    Layer& Use(int slot);

    std::vector<Layer> used;
};

} // namespace strativo
