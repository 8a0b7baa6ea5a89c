#include "desktop/TwoWindows.h"

namespace strativo {

class LayerStory : public TwoWindows {};

TEST_F(LayerStory, LayersAreMovedAndCopiedBetweenTwoWindows) {
    Open();
    Drag(LayerRow(1, 1), LayerRow(2, 0));
    EXPECT_EQ(Layers(1), "FACE BRICK, [PLASTER]");
    EXPECT_EQ(Layers(2), "BLOCK, INSULATION");
    EXPECT_EQ(ActiveWindow(), 2);
    Hold(Key::ctrl);
    Drag(LayerRow(2, 1), LayerRow(1, 7));
    LetGo(Key::ctrl);
    EXPECT_EQ(Layers(1), "FACE BRICK, PLASTER, INSULATION");
    EXPECT_EQ(Layers(2), "BLOCK, [INSULATION]");
    Click(LayerRow(1, 0));
    Hold(Key::ctrl);
    Click(LayerRow(1, 2));
    LetGo(Key::ctrl);
    EXPECT_EQ(Layers(1), "[FACE BRICK], PLASTER, [INSULATION]");
    Drag(LayerRow(1, 2), LayerRow(2, 1));
    EXPECT_EQ(Layers(2), "BLOCK, FACE BRICK, INSULATION, INSULATION");
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"),
              Pair({Plaster(1)}, {Block(1), FaceBrick(2), Insulation(3), Insulation(4)}));
}

TEST_F(LayerStory, AMaterialGoesToTheWindowUnderThePointerAndNotToTheActiveOne) {
    Open();
    EXPECT_EQ(ActiveWindow(), 2);
    Drag(Material("INSULATION"), LayerRow(1, 2));
    EXPECT_EQ(Layers(1), "FACE BRICK, BLOCK, INSULATION, PLASTER");
    EXPECT_EQ(ActiveWindow(), 1);
    Enter("80");
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"),
              Pair({FaceBrick(1), Block(2), Insulation(3), Plaster(4)}, {Insulation(1)}));
}

TEST_F(LayerStory, LayersAreMovedWithinAList) {
    Open();
    Drag(LayerRow(1, 0), LayerRow(1, 2));
    EXPECT_EQ(Layers(1), "BLOCK, FACE BRICK, PLASTER");
    Drag(LayerRow(1, 2), LayerRow(1, 0));
    EXPECT_EQ(Layers(1), "PLASTER, BLOCK, FACE BRICK");
    Drag(LayerRow(1, 0), LayerRow(1, 5));
    EXPECT_EQ(Layers(1), "BLOCK, FACE BRICK, PLASTER");
    Drag(LayerRow(1, 2), PlaceOf(1, "Draglabel_3"));
    EXPECT_EQ(Layers(1), "PLASTER, BLOCK, FACE BRICK");
    Drag(LayerRow(1, 1), PlaceOf(1, "Draglabel_4"));
    EXPECT_EQ(Layers(1), "PLASTER, FACE BRICK, BLOCK");
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"), Pair({Plaster(1), FaceBrick(2), Block(3)}, {Insulation(1)}));
}

TEST_F(LayerStory, ALayerDroppedOnItselfStaysWhereItIs) {
    Open();
    Drag(LayerRow(1, 1), LayerRow(1, 1) + QPoint(150, 2));
    EXPECT_EQ(Layers(1), "FACE BRICK, BLOCK, PLASTER");
    ChooseMenu("Filemenu", "SaveProjectAs");
    ChooseFile("Save Construction file as ", PathOf("same.con"));
    EXPECT_EQ(Read("same.con"), Read("pair.con"));
}

TEST_F(LayerStory, EscCancelsADrag) {
    Open();
    PressAndMove(LayerRow(1, 1), LayerRow(2, 0));
    Press(Key::escape);
    Release();
    EXPECT_EQ(Layers(1), "FACE BRICK, [BLOCK], PLASTER");
    EXPECT_EQ(Layers(2), "INSULATION");
    EXPECT_FALSE(IsItemEnabled("Filemenu", "SaveProject"));
    ChooseMenu("Filemenu", "SaveProjectAs");
    ChooseFile("Save Construction file as ", PathOf("same.con"));
    EXPECT_EQ(Read("same.con"), Read("pair.con"));
}

TEST_F(LayerStory, ADropOutsideTheListsChangesNothing) {
    Open();
    Drag(LayerRow(1, 1), PlaceOf(2, "NameText"));
    Drag(LayerRow(1, 1), PlaceOf(UValueMDI::dialogId, "UValueList"));
    EXPECT_EQ(Layers(1), "FACE BRICK, [BLOCK], PLASTER");
    ChooseMenu("Filemenu", "SaveProjectAs");
    ChooseFile("Save Construction file as ", PathOf("same.con"));
    EXPECT_EQ(Read("same.con"), Read("pair.con"));
}

TEST_F(LayerStory, ATrembleIsNoDrag) {
    Open();
    const QPoint tremble(4, 4);
    Click(LayerRow(1, 0));
    Hold(Key::ctrl);
    Click(LayerRow(1, 1));
    Press(KeyOf('c'));
    LetGo(Key::ctrl);
    const QPoint material = Material("PLASTER");
    Drag(material, material + tremble);
    Drag(LayerRow(2, 0), LayerRow(2, 0) + tremble);
    EXPECT_EQ(Layers(2), "[INSULATION]");
    Press({Key::ctrl, KeyOf('v')});
    EXPECT_EQ(Layers(2), "INSULATION, [FACE BRICK], [BLOCK]");
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"),
              Pair({FaceBrick(1), Block(2), Plaster(3)}, {Insulation(1), FaceBrick(2), Block(3)}));
}

TEST_F(LayerStory, CtrlOnAMarkedLineDeselectsItButADragTakesItAlong) {
    Open();
    Click(LayerRow(1, 0));
    Hold(Key::ctrl);
    Click(LayerRow(1, 1));
    Click(LayerRow(1, 0));
    EXPECT_EQ(Layers(1), "FACE BRICK, [BLOCK], PLASTER");
    Click(LayerRow(1, 2));
    Drag(LayerRow(1, 1), LayerRow(2, 0));
    LetGo(Key::ctrl);
    EXPECT_EQ(Layers(1), "FACE BRICK, [BLOCK], [PLASTER]");
    EXPECT_EQ(Layers(2), "BLOCK, PLASTER, INSULATION");
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"),
              Pair({FaceBrick(1), Block(2), Plaster(3)}, {Block(1), Plaster(2), Insulation(3)}));
}

TEST_F(LayerStory, AFullConstructionTakesNoMoreAndNothingIsLost) {
    std::vector<std::string> blocks;
    for (int slot = 1; slot <= 13; ++slot)
        blocks.push_back(Block(slot));
    OpenWith(Pair({FaceBrick(1), Block(2), Plaster(3)}, blocks));
    Click(LayerRow(1, 0));
    Press({Key::ctrl, KeyOf('a')});
    EXPECT_EQ(Layers(1), "[FACE BRICK], [BLOCK], [PLASTER]");
    Drag(LayerRow(1, 0), LayerRow(2, 0));
    EXPECT_EQ(Layers(1), "[FACE BRICK], [BLOCK], [PLASTER]");
    ChooseMenu("Filemenu", "SaveProjectAs");
    ChooseFile("Save Construction file as ", PathOf("same.con"));
    EXPECT_EQ(Read("same.con"), Read("pair.con"));
}

TEST_F(LayerStory, TheLabelsReachBothEndsOfALongList) {
    std::vector<std::string> blocks;
    for (int slot = 1; slot <= 12; ++slot)
        blocks.push_back(Block(slot));
    OpenWith(Pair({FaceBrick(1), Block(2), Plaster(3)}, blocks));
    Drag(LayerRow(1, 0), PlaceOf(2, "Draglabel_4"));
    Drag(LayerRow(1, 1), PlaceOf(2, "Draglabel_3"));
    ChooseMenu("Filemenu", "SaveProject");
    std::vector<std::string> expected{Plaster(1)};
    for (int slot = 2; slot <= 13; ++slot)
        expected.push_back(Block(slot));
    expected.push_back(FaceBrick(14));
    EXPECT_EQ(Read("pair.con"), Pair({Block(1)}, expected));
}

TEST_F(LayerStory, TheClipboardWorksByKeys) {
    Open();
    Click(LayerRow(1, 1));
    Press({Key::ctrl, KeyOf('x')});
    EXPECT_EQ(Layers(1), "FACE BRICK, [PLASTER]");
    Click(LayerRow(2, 0));
    Press({Key::ctrl, KeyOf('b')});
    EXPECT_EQ(Layers(2), "[BLOCK], INSULATION");
    Press({Key::shift, Key::down});
    Press({Key::ctrl, KeyOf('c')});
    Press({Key::ctrl, KeyOf('v')});
    EXPECT_EQ(Layers(2), "BLOCK, INSULATION, [BLOCK], [INSULATION]");
    Press(Key::home);
    Press(Key::del);
    EXPECT_EQ(Layers(2), "[INSULATION], BLOCK, INSULATION");
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"),
              Pair({FaceBrick(1), Plaster(2)}, {Insulation(1), Block(2), Insulation(3)}));
}

TEST_F(LayerStory, TheContextMenuOfTheListIsTheEditMenu) {
    Open();
    Click(LayerRow(1, 0));
    Click(LayerRow(1, 0), rightButton);
    Press(KeyOf('d'));
    EXPECT_EQ(Layers(1), "[BLOCK], PLASTER");
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"), Pair({Block(1), Plaster(2)}, {Insulation(1)}));
}

} // namespace strativo
