#include "model/Construction.h"

namespace strativo {

int LayerCount(const Construction& construction) {
    int count = 0;
    for ([[maybe_unused]] const int slot : FilledSlots(construction))
        ++count;
    return count;
}

int SlotOfLayer(const Construction& construction, int layer) {
    int count = 0;
    for (const int slot : FilledSlots(construction))
        if (++count == layer)
            return slot;
    return 0;
}

const Layer& CurrentLayer(const Construction& construction) {
    static const Layer empty;
    const int slot = SlotOfLayer(construction, construction.currentLayer);
    return slot > 0 ? construction.layers[slot] : empty;
}

} // namespace strativo
