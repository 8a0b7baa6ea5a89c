#include "model/Construction.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace strativo {
namespace {

TEST(LayerSlots, ReadAsEmptyLayersUntilWrittenTo) {
    const LayerSlots slots;
    EXPECT_EQ(slots[1], Layer());
    EXPECT_EQ(slots[15], Layer());
    EXPECT_EQ(slots.HighestUsed(), 0);
}

TEST(LayerSlots, KeepWhatWasWritten) {
    LayerSlots slots;
    slots.Edit(3).name = "BRICK";
    EXPECT_EQ(slots[3].name, "BRICK");
    EXPECT_EQ(slots[2], Layer());
    EXPECT_EQ(slots.HighestUsed(), 3);
    slots.Edit(1).name = "PLASTER";
    EXPECT_EQ(slots.HighestUsed(), 3);
}

TEST(LayerSlots, AreFifteen) {
    LayerSlots slots;
    slots.Edit(15).name = "LAST";
    EXPECT_EQ(slots[15].name, "LAST");
    for (const int slot : {-1, 0, 16}) {
        EXPECT_THROW(static_cast<void>(slots[slot]), std::out_of_range) << slot;
        EXPECT_THROW(slots.Edit(slot), std::out_of_range) << slot;
        EXPECT_THROW(slots.ClearFrom(slot), std::out_of_range) << slot;
    }
}

TEST(LayerSlots, AreEmptiedFromASlotOn) {
    LayerSlots slots;
    for (int slot = 1; slot <= 3; ++slot)
        slots.Edit(slot).name = "BRICK";
    slots.ClearFrom(4);
    EXPECT_EQ(slots.HighestUsed(), 3);
    slots.ClearFrom(2);
    EXPECT_EQ(slots[1].name, "BRICK");
    EXPECT_EQ(slots[2], Layer());
    EXPECT_EQ(slots.HighestUsed(), 1);
}

TEST(Layer, IsComparedByEveryField) {
    std::vector<Layer> different(9);
    different[0].name = "BRICK";
    different[1].density = 1;
    different[2].specificHeat = 1;
    different[3].thickness = 1;
    different[4].conductivity = 1;
    different[5].absorption = 1;
    different[6].materialCode = 1;
    different[7].library = 1;
    different[8].selected = true;
    for (const Layer& layer : different) {
        EXPECT_NE(layer, Layer());
        EXPECT_EQ(layer, Layer(layer));
    }
}

TEST(LayerCount, LeavesOutSlotsWithoutAName) {
    Construction construction;
    EXPECT_EQ(LayerCount(construction), 0);
    construction.layers.Edit(1).name = "BRICK";
    construction.layers.Edit(3).name = "PLASTER";
    EXPECT_EQ(LayerCount(construction), 2);
}

TEST(SlotOfLayer, CountsSlotsWithANameOnly) {
    Construction construction;
    EXPECT_EQ(SlotOfLayer(construction, 1), 0);
    construction.layers.Edit(2).name = "BRICK";
    construction.layers.Edit(4).name = "PLASTER";
    EXPECT_EQ(SlotOfLayer(construction, 0), 0);
    EXPECT_EQ(SlotOfLayer(construction, 1), 2);
    EXPECT_EQ(SlotOfLayer(construction, 2), 4);
    EXPECT_EQ(SlotOfLayer(construction, 3), 0);
}

TEST(CurrentLayer, IsAnEmptyOneWhereThereIsNone) {
    Construction construction;
    EXPECT_EQ(CurrentLayer(construction), Layer());
    construction.currentLayer = 1;
    EXPECT_EQ(CurrentLayer(construction), Layer());
    construction.layers.Edit(3).name = "BRICK";
    EXPECT_EQ(CurrentLayer(construction).name, "BRICK");
    construction.currentLayer = 0;
    EXPECT_EQ(CurrentLayer(construction), Layer());
}

TEST(Construction, StartsOpaqueWithoutLayersAndNotInUse) {
    const Construction construction;
    EXPECT_EQ(construction.type, opaqueType);
    EXPECT_EQ(construction.currentLayer, 0);
    EXPECT_FALSE(construction.window.open);
    EXPECT_EQ(removedType, -999);
}

} // namespace
} // namespace strativo
