#include "model/Layer.h"

#include <stdexcept>

namespace strativo {

namespace {

void CheckSlot(int slot) {
    if (slot < LayerSlots::first || slot > LayerSlots::last)
        throw std::out_of_range("layer slot");
}

} // namespace

const Layer& LayerSlots::operator[](int slot) const {
    static const Layer empty;
    CheckSlot(slot);
    return slot <= HighestUsed() ? used[static_cast<std::size_t>(slot) - 1] : empty;
}

Layer& LayerSlots::Edit(int slot) {
    CheckSlot(slot);
    if (slot > HighestUsed())
        used.resize(static_cast<std::size_t>(slot));
    return used[static_cast<std::size_t>(slot) - 1];
}

void LayerSlots::ClearFrom(int slot) {
    CheckSlot(slot);
    if (slot <= HighestUsed())
        used.resize(static_cast<std::size_t>(slot) - 1);
}

} // namespace strativo
