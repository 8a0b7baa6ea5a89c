#pragma once

#include "model/Layer.h"
#include "model/NumberRange.h"

#include <cstdint>
#include <string>

namespace strativo {

inline constexpr std::int16_t opaqueType = 0;
inline constexpr std::int16_t transparentType = 1;
inline constexpr std::int16_t removedType = -999;

/// What the project remembers of a construction's window.
struct WindowRecord {
    bool open = false;         ///< the construction is in use
    bool edited = false;       ///< a thickness was entered in the window; nothing reads it
    std::int16_t topLine = 0;  ///< of the layer list, from 0: the first one seen
    double shownThickness = 0; ///< mm, what the thickness field shows; 0: the field is empty
    unsigned lastActive = 0;   ///< grows with each activation, so the largest is the latest
    unsigned opening = 0;      ///< tells this use of the slot from an earlier one
};

struct Construction {
    std::string name;
    LayerSlots layers;
    WindowRecord window;
    std::int16_t type = opaqueType; ///< 0 opaque, 1 transparent, -999 removed
    std::int16_t currentLayer = 0;  ///< 0 none, else 1 to 15: shown for editing, insertion point
};

/// The layer slots that hold a layer, in order.
inline auto FilledSlots(const Construction& construction) {
    const LayerSlots& layers = construction.layers;
    return NumberRange(LayerSlots::first, layers.HighestUsed(),
                       [&layers](int slot) { return !layers[slot].name.empty(); });
}

/// Number of layer slots that hold a layer: the lines of the layer list.
int LayerCount(const Construction& construction);
/// The slot of the layer with that number, counted without empty slots; 0 if there is none.
int SlotOfLayer(const Construction& construction, int layer);
/// The current layer; an empty one if there is none.
const Layer& CurrentLayer(const Construction& construction);

} // namespace strativo
