#include "calc/LayerList.h"

#include "calc/TestLayers.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

class LayerListOfAWindow : public testing::Test {
protected:
    LayerListOfAWindow() {
        wall = MakeConstruction({MakeLayer("BRICK", 0.84F, 105), MakeLayer("PLASTER", 0.5F, 13)});
    }
    Construction& construction() { return wall; }
    LayerListView Refreshed() {
        RefreshLayerList(wall);
        return ViewLayerList(wall);
    }

    Construction wall;
};

TEST_F(LayerListOfAWindow, ShowsLinesAndTheCurrentLayer) {
    construction().currentLayer = 2;
    construction().layers.Edit(2).absorption = 0.25F;
    const LayerListView view = Refreshed();
    ASSERT_EQ(view.lines.size(), 2U);
    EXPECT_EQ(view.lines[0], FormatLayerLine(construction().layers[1]));
    EXPECT_EQ(view.lines[1], FormatLayerLine(construction().layers[2]));
    EXPECT_EQ(view.editThick, "13");
    EXPECT_EQ(view.absorpText, "0.25");
    EXPECT_EQ(view.conName, "PLASTER");
    EXPECT_EQ(view.result, "3.02");
}

TEST_F(LayerListOfAWindow, IsEmptyForAnEmptyConstruction) {
    construction() = Construction();
    construction().window.shownThickness = 105;
    const LayerListView view = Refreshed();
    EXPECT_TRUE(view.lines.empty());
    EXPECT_TRUE(view.marks.empty());
    EXPECT_EQ(view.editThick, "");
    EXPECT_EQ(view.absorpText, "0.00");
    EXPECT_EQ(view.conName, "");
    EXPECT_EQ(view.result, "n/a");
}

TEST_F(LayerListOfAWindow, ClearsTheFieldsWithoutACurrentLayer) {
    Refreshed();
    construction().currentLayer = 0;
    const LayerListView view = Refreshed();
    EXPECT_EQ(view.editThick, "");
    EXPECT_EQ(view.absorpText, "0.00");
    EXPECT_EQ(view.conName, "");
}

// A refresh must not wipe the figure: users know it to stay.
TEST_F(LayerListOfAWindow, KeepsThicknessFieldStaleForZeroThickness) {
    EXPECT_EQ(Refreshed().editThick, "105");
    construction().currentLayer = 2;
    construction().layers.Edit(2).thickness = 0;
    EXPECT_EQ(Refreshed().editThick, "105");
    construction().layers.Edit(2).thickness = -5;
    EXPECT_EQ(Refreshed().editThick, "105");
    construction().layers.Edit(2).thickness = 0.25;
    EXPECT_EQ(Refreshed().editThick, "0.250");
}

TEST_F(LayerListOfAWindow, ShowsTheMarksOfTheLayers) {
    construction().layers.Edit(2).selected = true;
    EXPECT_EQ(Refreshed().marks, (std::vector<bool>{false, true}));
}

// Files can hold layers of materials without a name; the U-value takes slots by number all the
// same.
TEST_F(LayerListOfAWindow, SkipsEmptySlots) {
    construction().layers.Edit(2) = Layer();
    construction().layers.Edit(3) = MakeLayer("PLASTER", 0.5F, 13);
    construction().layers.Edit(3).selected = true;
    construction().currentLayer = 2;
    const LayerListView view = Refreshed();
    ASSERT_EQ(view.lines.size(), 2U);
    EXPECT_EQ(view.lines[1].substr(0, 7), "PLASTER");
    EXPECT_EQ(view.marks, (std::vector<bool>{false, true}));
    EXPECT_EQ(view.editThick, "13");
    EXPECT_EQ(view.conName, "PLASTER");
    EXPECT_EQ(view.result, "n/a");
}

TEST_F(LayerListOfAWindow, CutsALongNameInTheListOnly) {
    const std::string name(40, 'N');
    construction().layers.Edit(1).name = name;
    const LayerListView view = Refreshed();
    EXPECT_EQ(view.lines[0].substr(0, 37), std::string(35, 'N') + "  ");
    EXPECT_EQ(view.conName, name);
    EXPECT_EQ(construction().layers[1].name, name);
}

} // namespace
} // namespace strativo
