#include "desktop/Story.h"

#include <gmock/gmock.h>

namespace strativo {

using testing::ElementsAre;

class LibraryStory : public Story {
protected:
    LibraryStory() { Write("user.lby", "12* Hemp,0.04 40 1600\r\n15* Cork,0.045 150 1880\r\n"); }
};

TEST_F(LibraryStory, SortedMaterialsOfBothLibrariesAreInsertedByDoubleClickAndEnter) {
    Start();
    EXPECT_THAT(Materials(), ElementsAre());
    ChooseMenu("Filemenu", "NewUValue");
    ChooseMenu("Sortmenu", "CondSort");
    EXPECT_THAT(Materials(),
                ElementsAre("CAVITY Type 11 ISO15099", "CAVITY Type 6 Low-e Ventilated",
                            "CAVITY Type 5 Normal Ventilated", "CAVITY Type 3 width = resistance",
                            "CAVITY Type 2 Low-E", "CAVITY Type 1 NORMAL", "INSULATION", "BLOCK",
                            "PLASTER", "FACE BRICK"));
    ChooseMenu("Sortmenu", "NameSort");
    EXPECT_THAT(Materials(),
                ElementsAre("BLOCK", "CAVITY Type 1 NORMAL", "CAVITY Type 11 ISO15099",
                            "CAVITY Type 2 Low-E", "CAVITY Type 3 width = resistance",
                            "CAVITY Type 5 Normal Ventilated", "CAVITY Type 6 Low-e Ventilated",
                            "FACE BRICK", "INSULATION", "PLASTER"));
    DoubleClick(Material("PLASTER"));
    EXPECT_EQ(Layers(1), "[PLASTER]");

    ChooseMenu("Filemenu", "LoadMaterials");
    ChooseFile("Open user material file", PathOf("user.lby"));
    EXPECT_THAT(Materials(), ElementsAre("CORK", "HEMP"));
    ChooseMenu("Sortmenu", "HeatSort");
    EXPECT_THAT(Materials(), ElementsAre("HEMP", "CORK"));
    DoubleClick(Material("HEMP"));
    EXPECT_EQ(Layers(1), "[HEMP], PLASTER");
    Click(PlaceOf(dialog, "MatOption_0"));
    DoubleClick(Material("BLOCK"));
    Click(PlaceOf(dialog, "MatOption_1"));
    Click(Material("CORK"));
    Press(Key::enter);
    EXPECT_EQ(Layers(1), "[CORK], BLOCK, HEMP, PLASTER");

    ChooseMenu("Filemenu", "SaveProject");
    Answer("Zero thickness error",
           "The following construction(s) have at least one zero thickness\n\n"
           "Construction 1\n\nDo you wish to save anyway?\n",
           "Yes");
    ChooseFile("Save Construction file as ", PathOf("wall.con"));
    EXPECT_EQ(Read("wall.con"),
              Lines({"!MATERIALS FILE = '..\\stdmat.lby'",
                     "!MATERIALS USER FILE = '" + PathOf("user.lby") + "'", "",
                     "!CONSTRUCTION 'Construction 1'", "!TYPE OPAQUE", "!PARTS",
                     "_ 1 =      @15      0.000      0            * CORK",
                     "_ 2 =       20      0.000      0            * BLOCK",
                     "_ 3 =      @12      0.000      0            * HEMP",
                     "_ 4 =       30      0.000      0            * PLASTER", "!END", ""}));
}

TEST_F(LibraryStory, AUserLibraryInUseIsWarnedOfBeforeAnotherIsLoaded) {
    Write("wall.con",
          Lines({"!MATERIALS FILE = '../stdmat.lby'", "!MATERIALS USER FILE = 'user.lby'", "",
                 "!CONSTRUCTION 'Wall'", "!TYPE OPAQUE", "!PARTS",
                 "_ 1 =      @12      0.040      0            * HEMP", "!END", ""}));
    Start("wall.con");
    ChooseMenu("Filemenu", "LoadMaterials");
    Answer("The user material file is in use",
           "The user material file is being used, make sure the\n"
           "new user file has all the current materials.",
           "OK");
    CancelPrompt("Open user material file");
    ChooseMenu("Filemenu", "SaveProjectAs");
    ChooseFile("Save Construction file as ", PathOf("same.con"));
    EXPECT_EQ(Read("same.con"), Read("wall.con"));
}

TEST_F(LibraryStory, TheDialogIsClosedAndBroughtBack) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    Click(FrameButton(dialog, "CloseButton"));
    EXPECT_FALSE(IsVisible(dialog, "UValueList"));
    ChooseMenu("Sortmenu", "DensitySort");
    EXPECT_EQ(Materials().front(), "CAVITY Type 1 NORMAL");
    Click(Material("BLOCK"));
    Press({Key::ctrl, KeyOf('c')});
    Click(LayerRow(1, 0));
    Press({Key::ctrl, KeyOf('v')});
    Enter("100");
    ChooseMenu("Filemenu", "SaveProject");
    ChooseFile("Save Construction file as ", PathOf("wall.con"));
    EXPECT_EQ(Read("wall.con"),
              Lines({"!MATERIALS FILE = '..\\stdmat.lby'", "", "!CONSTRUCTION 'Construction 1'",
                     "!TYPE OPAQUE", "!PARTS",
                     "_ 1 =       20      0.100      0            * BLOCK", "!END", ""}));
}

} // namespace strativo
