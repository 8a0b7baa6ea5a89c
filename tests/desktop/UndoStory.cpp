#include "desktop/GlassWindows.h"
#include "desktop/TwoWindows.h"

#include <gmock/gmock.h>

namespace strativo {

class UndoStory : public TwoWindows {
protected:
    void Back() { Press({Key::ctrl, KeyOf('z')}); }
    void Again() { Press({Key::ctrl, KeyOf('y')}); }
    /// Saves under another name and returns what was written.
    std::string Saved() {
        ChooseMenu("Filemenu", "SaveProjectAs");
        ChooseFile("Save Construction file as ", PathOf("saved.con"));
        std::string bytes = Read("saved.con");
        std::filesystem::remove(PathOf("saved.con"));
        return bytes;
    }
};

TEST_F(UndoStory, ADayOfMistakesIsTakenBackStepByStepAndDoneAgain) {
    Open();
    Click(LayerRow(1, 1));
    Enter("150");
    Drag(LayerRow(1, 0), LayerRow(2, 0));
    EXPECT_EQ(Layers(2), "FACE BRICK, INSULATION");
    Click(LayerRow(2, 1));
    Press({Key::ctrl, KeyOf('x')});
    EXPECT_EQ(Layers(2), "[FACE BRICK]");
    ChooseMenu("Filemenu", "CloseUValue");
    EXPECT_EQ(ActiveWindow(), 1);
    Back();
    EXPECT_EQ(ActiveWindow(), 2);
    EXPECT_EQ(Layers(2), "[FACE BRICK]");
    Back();
    EXPECT_EQ(Layers(2), "FACE BRICK, [INSULATION]");
    Back();
    EXPECT_EQ(ActiveWindow(), 1);
    EXPECT_EQ(Layers(2), "INSULATION");
    Back();
    EXPECT_EQ(Layers(1), "FACE BRICK, [BLOCK], PLASTER");
    EXPECT_FALSE(IsItemEnabled("Filemenu", "SaveProject")) << "the content of the file";
    for (int step = 0; step < 4; ++step)
        Again();
    EXPECT_EQ(ActiveWindow(), 1);
    for (int step = 0; step < 4; ++step)
        Back();
    EXPECT_EQ(Saved(), Read("pair.con"));
}

TEST_F(UndoStory, ARemovedConstructionComesBackToItsPlace) {
    Open();
    const QPoint title = TitleOf(2);
    Click(LayerRow(2, 0));
    ChooseMenu("Filemenu", "CloseUValue");
    Click(Material("PLASTER"));
    Back();
    EXPECT_EQ(ActiveWindow(), 2);
    EXPECT_EQ(TitleOf(2), title);
    EXPECT_EQ(Focus(), "Construction");
    EXPECT_EQ(Layers(2), "[INSULATION]");
}

TEST_F(UndoStory, TheMenuOfTheLayerListNamesTheStep) {
    Open();
    Click(LayerRow(1, 0));
    Press({Key::shift, Key::down});
    Press(Key::del);
    EXPECT_EQ(Layers(1), "[PLASTER]");
    Click(LayerRow(1, 0), rightButton);
    Press(Key::down);
    Press(Key::enter);
    EXPECT_EQ(Layers(1), "[FACE BRICK], [BLOCK], PLASTER");
}

TEST_F(UndoStory, AFieldKeepsItsOwnSteps) {
    Open();
    Click(LayerRow(1, 0));
    Press(Key::del);
    Click(PlaceOf(1, "NameText"));
    Type("Roof");
    Back();
    EXPECT_NE(TextOf(1, "NameText"), "Roof");
    Again();
    EXPECT_EQ(TextOf(1, "NameText"), "Roof");
    EXPECT_EQ(Layers(1), "[BLOCK], PLASTER");
    Press(Key::escape);
    Back();
    EXPECT_EQ(Layers(1), "[FACE BRICK], BLOCK, PLASTER");
}

} // namespace strativo
