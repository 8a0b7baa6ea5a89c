#include "model/Layer.h"

#include <stdexcept>

namespace strativo {

namespace {

/// Most constructions have no more layers than this, so that their slots need not be moved as they
/// grow.
constexpr std::size_t usualLayers = 6;

void CheckSlot(int slot) {
    if (slot < LayerSlots::first || slot > LayerSlots::last)
        throw std::out_of_range("layer slot");
}

} // namespace

const Layer& LayerSlots::Unused(int slot) {
    static const Layer empty;
    CheckSlot(slot);
    return empty;
}

Layer& LayerSlots::Use(int slot) {
    CheckSlot(slot);
    if (used.empty())
        used.reserve(usualLayers);
    used.resize(static_cast<std::size_t>(slot));
    return used.back();
}

void LayerSlots::ClearFrom(int slot) {
    CheckSlot(slot);
    if (slot <= HighestUsed())
        used.resize(static_cast<std::size_t>(slot) - 1);
}

} // namespace strativo
