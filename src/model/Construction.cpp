#include "model/Construction.h"

namespace strativo {

int LayerCount(const Construction& construction) {
    int count = 0;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
        count += construction.layers[slot].name.empty() ? 0 : 1;
    return count;
}

int SlotOfLayer(const Construction& construction, int layer) {
    int count = 0;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
        if (!construction.layers[slot].name.empty() && ++count == layer)
            return slot;
    return 0;
}

const Layer& CurrentLayer(const Construction& construction) {
    static const Layer empty;
    const int slot = SlotOfLayer(construction, construction.currentLayer);
    return slot > 0 ? construction.layers[slot] : empty;
}

} // namespace strativo
