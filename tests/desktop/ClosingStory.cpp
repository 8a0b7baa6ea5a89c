#include "desktop/TwoWindows.h"

namespace strativo {

class ClosingStory : public TwoWindows {
protected:
    /// Deletes a layer, and closes the main window by the window manager's key.
    void ChangeAndClose() {
        Open();
        Click(LayerRow(1, 0));
        Press(Key::del);
        EXPECT_EQ(Layers(1), "[BLOCK], PLASTER");
        Press({Key::alt, Key::f4});
    }

    void ExpectClosed() {
        WaitFor("the main window to close", [this] { return !window->isVisible(); });
    }

    const std::string before = Pair({FaceBrick(1), Block(2), Plaster(3)}, {Insulation(1)});
    const std::string after = Pair({Block(1), Plaster(2)}, {Insulation(1)});
    const std::string title = "Construction Have Changed";
};

TEST_F(ClosingStory, CancelKeepsTheProgramOpen) {
    ChangeAndClose();
    Answer(title, "Save changes to " + PathOf("pair.con") + " ?", "Cancel");
    EXPECT_TRUE(IsRunning());
    EXPECT_EQ(Read("pair.con"), before);
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"), after);
    Press({Key::alt, Key::f4});
    ExpectClosed();
}

TEST_F(ClosingStory, AClickBesideTheQuestionLeavesItTheKeys) {
    ChangeAndClose();
    WaitForBox(title);
    for (const QPoint place : {TitleOf(2), LayerRow(2, 4)}) {
        Click(place);
        WaitForBox(title);
    }
    Press(Key::escape);
    WaitFor("the question to go", [this] { return window->isActiveWindow(); });
    EXPECT_TRUE(IsRunning());
    EXPECT_EQ(Layers(1), "[BLOCK], PLASTER");
    EXPECT_EQ(Read("pair.con"), before);
}

TEST_F(ClosingStory, YesSavesAndCloses) {
    ChangeAndClose();
    Answer(title, "Save changes to " + PathOf("pair.con") + " ?", "Yes");
    ExpectClosed();
    EXPECT_EQ(Read("pair.con"), after);
}

TEST_F(ClosingStory, NoClosesWithoutSaving) {
    ChangeAndClose();
    Answer(title, "Save changes to " + PathOf("pair.con") + " ?", "No");
    ExpectClosed();
    EXPECT_EQ(Read("pair.con"), before);
}

TEST_F(ClosingStory, AnUntitledProjectIsAskedForItsName) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    DoubleClick(Material("BLOCK"));
    Click(LayerRow(1, 0));
    Enter("100");
    ChooseMenu("Filemenu", "QuitProg");
    Answer(title, "Save changes to Untitled.con ?", "Yes");
    CancelPrompt("Save Construction file as ");
    EXPECT_TRUE(IsRunning());
    ChooseMenu("Filemenu", "QuitProg");
    Answer(title, "Save changes to Untitled.con ?", "Yes");
    ChooseFile("Save Construction file as ", PathOf("new.con"));
    ExpectClosed();
    EXPECT_EQ(Read("new.con"),
              Lines({"!MATERIALS FILE = '..\\stdmat.lby'", "", "!CONSTRUCTION 'Construction 1'",
                     "!TYPE OPAQUE", "!PARTS", Block(1), "!END", ""}));
}

TEST_F(ClosingStory, ACancelledSaveAsKeepsTheName) {
    Open();
    Click(LayerRow(1, 0));
    Press(Key::del);
    ChooseMenu("Filemenu", "SaveProjectAs");
    CancelPrompt("Save Construction file as ");
    EXPECT_EQ(Read("pair.con"), before);
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"), after);
}

TEST_F(ClosingStory, ConstructionsAreClosedOnlyByTheCommand) {
    Open();
    Click(FrameButton(2, "CloseButton"));
    EXPECT_EQ(Layers(2), "INSULATION");
    Press({Key::ctrl, Key::f4});
    EXPECT_EQ(Layers(2), "INSULATION");
    Click(LayerRow(1, 0));
    ChooseMenu("Filemenu", "CloseUValue");
    EXPECT_EQ(ActiveWindow(), 2);
    ChooseMenu("Filemenu", "SaveProject");
    EXPECT_EQ(Read("pair.con"),
              Lines({"!MATERIALS FILE = '../stdmat.lby'", "", "!CONSTRUCTION 'Second'",
                     "!TYPE OPAQUE", "!PARTS", Insulation(1), "!END", ""}));
}

TEST_F(ClosingStory, ANewFileAsksBeforeChangesAreLost) {
    Open();
    Click(LayerRow(1, 0));
    Press(Key::del);
    const std::string question = "Changes have not been saved.  Continue without saving?";
    ChooseMenu("Filemenu", "NewProject");
    Answer("Warning", question, "No");
    EXPECT_EQ(Layers(1), "[BLOCK], PLASTER");
    ChooseMenu("Filemenu", "NewProject");
    Answer("Warning", question, "Yes");
    EXPECT_EQ(ActiveWindow(), dialog);
    ChooseMenu("Filemenu", "NewUValue");
    Press({Key::alt, KeyOf('c')});
    Enter("fresh");
    ChooseMenu("Filemenu", "SaveProjectAs");
    ChooseFile("Save Construction file as ", PathOf("new.con"));
    EXPECT_EQ(Read("new.con"),
              Lines({"!MATERIALS FILE = '../stdmat.lby'", "", "!CONSTRUCTION 'fresh'",
                     "!TYPE OPAQUE", "!PARTS", "!END", ""}));
    EXPECT_EQ(Read("pair.con"), before);
}

} // namespace strativo
