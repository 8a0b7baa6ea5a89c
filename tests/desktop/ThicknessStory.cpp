#include "desktop/Story.h"

namespace strativo {

class ThicknessStory : public Story {};

TEST_F(ThicknessStory, ThicknessesAreEnteredWithBothWarnings) {
    Write("wall.con",
          Lines({"!MATERIALS FILE = '../stdmat.lby'", "", "!CONSTRUCTION 'Wall'", "!TYPE OPAQUE",
                 "!PARTS", "_ 1 =       12      0.105      0            * FACE BRICK",
                 "_ 2 =       -3      0.000180   0            * CAVITY",
                 "_ 3 =       20      0.100      0            * BLOCK",
                 "_ 4 =       30      0.013      0            * PLASTER", "!END", ""}));
    Start("wall.con");
    Click(LayerRow(1, 0));

    Enter("0.5");
    Answer("Thickness error", "Thickness is set to less than 1", "OK");
    EXPECT_EQ(Focus(), "EditThick");
    EXPECT_EQ(TextOf(1, "EditThick"), "0.5");
    Enter("1500"); // what was refused is selected, so that this replaces it
    const std::string question = "Thickness is Greater than 1m, do you want this value";
    Answer("Thickness warning", question, "No");
    EXPECT_EQ(TextOf(1, "EditThick"), "1500");
    EXPECT_EQ(Focus(), "EditThick");
    Press(Key::enter);
    Answer("Thickness warning", question, "Yes");

    EXPECT_EQ(Layers(1), "FACE BRICK, [CAVITY Tyep 3 width = resistance], BLOCK, PLASTER");
    EXPECT_EQ(TextOf(1, "EditThick"), "0.180");
    EXPECT_EQ(Focus(), "Construction");
    Enter("0.25");
    Enter("1000");
    EXPECT_EQ(Layers(1), "FACE BRICK, CAVITY Tyep 3 width = resistance, BLOCK, [PLASTER]");
    Enter("1");
    EXPECT_EQ(Layers(1), "FACE BRICK, CAVITY Tyep 3 width = resistance, BLOCK, PLASTER");
    EXPECT_EQ(TextOf(1, "EditThick"), "1");

    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(
        Read("wall.con"),
        Lines({"!MATERIALS FILE = '../stdmat.lby'", "", "!CONSTRUCTION 'Wall'", "!TYPE OPAQUE",
               "!PARTS", "_ 1 =       12      1.500      0            * FACE BRICK",
               "_ 2 =       -3      0.000250   0            * CAVITY Tyep 3 width = resistance",
               "_ 3 =       20      1.000      0            * BLOCK",
               "_ 4 =       30      0.001      0            * PLASTER", "!END", ""}));
}

TEST_F(ThicknessStory, WhatIsNotEndedByEnterIsGivenUp) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    DoubleClick(Material("FACE BRICK"));
    DoubleClick(Material("BLOCK"));
    EXPECT_EQ(Layers(1), "[BLOCK], FACE BRICK");
    Click(LayerRow(1, 0));
    Enter("12,5");
    EXPECT_EQ(Layers(1), "BLOCK, [FACE BRICK]");
    Type("77");
    EXPECT_EQ(TextOf(1, "EditThick"), "77");
    Press(Key::escape);
    EXPECT_EQ(TextOf(1, "EditThick"), "");
    Enter("105");
    Type("88");
    Click(LayerRow(1, 0));
    EXPECT_EQ(TextOf(1, "EditThick"), "13");
    Click(PlaceOf(1, "NameText"));
    Type("given up");
    Press(Key::tab);
    EXPECT_EQ(TextOf(1, "NameText"), "Construction 1");
    ChooseMenu("Filemenu", "SaveProject");
    ChooseFile("Save Construction file as ", PathOf("wall.con"));
    EXPECT_EQ(
        Read("wall.con"),
        Lines({"!MATERIALS FILE = '..\\stdmat.lby'", "", "!CONSTRUCTION 'Construction 1'",
               "!TYPE OPAQUE", "!PARTS", "_ 1 =       20      0.013      0            * BLOCK",
               "_ 2 =       12      0.105      0            * FACE BRICK", "!END", ""}));
}

TEST_F(ThicknessStory, ATransparentConstructionHasAbsorptions) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    EXPECT_FALSE(IsVisible(1, "AbsorpText"));
    DoubleClick(Material("BLOCK"));
    Click(LayerRow(1, 0));
    Enter("6");
    Click(PlaceOf(1, "TypeCombo"));
    Press(Key::down);
    Press(Key::enter);
    EXPECT_EQ(TextOf(1, "TypeCombo"), "Transparent");
    ChooseMenu("Filemenu", "SaveProject");
    Answer("Zero absorption error",
           "The following construction(s) have a total absorption equal to zero\n\n"
           "Construction 1\n\nDo you wish to save anyway?\n",
           "No");
    Press({Key::alt, KeyOf('a')});
    EXPECT_EQ(Focus(), "AbsorpText");
    Enter("0.155");
    ChooseMenu("Filemenu", "SaveProject");
    ChooseFile("Save Construction file as ", PathOf("pane.con"));
    EXPECT_EQ(Read("pane.con"),
              Lines({"!MATERIALS FILE = '..\\stdmat.lby'", "", "!CONSTRUCTION 'Construction 1'",
                     "!TYPE TRANSPARENT", "!PARTS",
                     "_ 1 =       20      0.006      0      0.16      * BLOCK", "!END", ""}));
}

} // namespace strativo
