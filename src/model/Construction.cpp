#include "model/Construction.h"

namespace strativo {

int LayerCount(const Construction& construction) {
    int count = 0;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot)
        count += construction.layers[slot].name.empty() ? 0 : 1;
    return count;
}

} // namespace strativo
