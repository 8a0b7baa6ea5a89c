#include "desktop/Story.h"

namespace strativo {

/// Building constructions from nothing.
class WallStory : public Story {};

TEST_F(WallStory, AWallIsBuiltByDragAndDropAndSaved) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    EXPECT_EQ(TextOf(1, "Result"), "n/a");
    Drag(Material("FACE BRICK"), LayerRow(1, 4));
    EXPECT_EQ(Layers(1), "FACE BRICK");
    EXPECT_EQ(ActiveWindow(), 1);
    Enter("105");
    Drag(Material("CAVITY Type 1 NORMAL"), LayerRow(1, 4));
    Enter("50");
    Drag(Material("BLOCK"), LayerRow(1, 4));
    Enter("100");
    Drag(Material("PLASTER"), LayerRow(1, 8));
    Enter("13");
    EXPECT_EQ(TextOf(1, "Result"), "1.03");
    Press({Key::alt, KeyOf('c')});
    EXPECT_EQ(Focus(), "NameText");
    Enter("Außenwand");
    ChooseMenu("Filemenu", "SaveProject");
    ChooseFile("Save Construction file as ", PathOf("wall"));
    EXPECT_EQ(
        Read("wall.con"),
        Lines({"!MATERIALS FILE = '..\\stdmat.lby'", "",
               "!CONSTRUCTION 'Au\xDF"
               "enwand'",
               "!TYPE OPAQUE", "!PARTS", "_ 1 =       12      0.105      0            * FACE BRICK",
               "_ 2 =       -1      0.050      0            * CAVITY Type 1 NORMAL",
               "_ 3 =       20      0.100      0            * BLOCK",
               "_ 4 =       30      0.013      0            * PLASTER", "!END", ""}));
}

} // namespace strativo
