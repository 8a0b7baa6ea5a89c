#include "desktop/Story.h"
#include "ui/HelpViewer.h"
#include "ui/WindowArea.h"

#include <QApplication>
#include <QStatusBar>
#include <QTextBrowser>

namespace strativo {

/// What the status bar and the grey area say while somebody works.
class SayingStory : public Story {
protected:
    std::string Said() {
        return InGui([this] { return window->statusBar()->currentMessage().toStdString(); });
    }
    void NewConstructionOf(int layers) {
        ChooseMenu("Filemenu", "NewUValue");
        for (int layer = 0; layer < layers; ++layer)
            DoubleClick(Material("PLASTER"));
    }
};

TEST_F(SayingStory, TheEmptyWindowSaysHowToBeginUntilThereIsAConstruction) {
    Start();
    const auto hint = [this] {
        return InGui([this] { return window->Area().accessibleDescription().toStdString(); });
    };
    const auto picture = [this] {
        return InGui([this] { return window->Area().grab().toImage(); });
    };
    EXPECT_NE(hint().find("New construction in the File menu (Alt+F, C)"), std::string::npos);
    const QImage withHint = picture();
    Press({Key::alt, KeyOf('f')});
    Press(KeyOf('c'));
    WaitFor("the construction", [this] { return window->Area().Has(1); });
    EXPECT_EQ(hint(), "");
    EXPECT_NE(picture(), withHint);
}

TEST_F(SayingStory, SavingSaysAsWhat) {
    Start();
    NewConstructionOf(1);
    Click(LayerRow(1, 0));
    Enter("100");
    Press({Key::ctrl, KeyOf('s')});
    ChooseFile("Save Construction file as ", PathOf("roof.con"));
    WaitFor("the words", [this] { return !window->statusBar()->currentMessage().isEmpty(); });
    EXPECT_EQ(Said().rfind("Saved as roof.con in /", 0), 0U) << Said();
    EXPECT_NE(Read("roof.con").find("PLASTER"), std::string::npos);
}

TEST_F(SayingStory, ARenameThatSaveWillNotOfferToKeepIsNamedAndSoIsTheKey) {
    const auto waitForNotice = [this] {
        WaitFor("the notice", [this] {
            return window->statusBar()->currentMessage()
                   == QLatin1String(
                       "This does not count as a change: Save construction file as... keeps it");
        });
    };
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    waitForNotice(); // about the construction
    Press({Key::ctrl, KeyOf('s')});
    EXPECT_EQ(Said(), "Nothing counts as changed: Save construction file as... saves all, names, "
                      "types and absorptions too");
    Press({Key::alt, KeyOf('c')});
    Type("Flat roof");
    Press(Key::enter);
    waitForNotice();
}

TEST_F(SayingStory, AThicknessThatTheFileRoundsIsNamed) {
    Start();
    NewConstructionOf(2);
    Click(LayerRow(1, 0));
    Enter("12.5");
    EXPECT_EQ(Said(), "12.5 mm will be 13 mm in the construction file");
}

TEST_F(SayingStory, TheCloseBoxOfAConstructionNamesWhatClosesIt) {
    Start();
    NewConstructionOf(1);
    Click(FrameButton(1, "CloseButton"));
    EXPECT_EQ(Said(),
              "This button closes no construction: Remove construction in the File menu does");
    EXPECT_EQ(Layers(1), "[PLASTER]");
}

TEST_F(SayingStory, TheSixteenthLayerIsNamed) {
    Start();
    NewConstructionOf(15);
    EXPECT_EQ(Said().find("not inserted"), std::string::npos);
    DoubleClick(Material("BLOCK"));
    EXPECT_EQ(Said(), "1 layer not inserted: a construction has at most 15");
}

TEST_F(SayingStory, AnImportSaysWhatItBroughtAndMenusDoNotTakeItAway) {
    Write("glass.con", Lines({"!WINDOW = 'A'", "!END", "!WINDOW = 'B'", "!END"}));
    Start();
    ChooseMenu("Filemenu", "ImportGlass");
    ChooseFile("Open Construction file", PathOf("glass.con"));
    WaitFor("the words", [this] {
        return window->statusBar()->currentMessage() == QLatin1String("2 glass types imported");
    });
    Press(Key::f10);
    Press(Key::down);
    Press(Key::escape);
    EXPECT_EQ(Said(), "2 glass types imported");
}

TEST_F(SayingStory, ControlNAndControlOChangeTheProject) {
    Write("roof.con", Lines({"!MATERIALS FILE = '../stdmat.lby'", "", "!CONSTRUCTION 'Roof'",
                             "!TYPE OPAQUE", "!PARTS", "_ 1 = 20 0.100 0 * BLOCK", "!END", ""}));
    Start();
    NewConstructionOf(1);
    Press({Key::ctrl, KeyOf('n')});
    Answer("Warning", "Changes have not been saved.  Continue without saving?", "Yes");
    WaitFor("the end of the construction", [this] { return !window->Area().Has(1); });
    Press({Key::ctrl, KeyOf('o')});
    ChooseFile("Open Construction file", PathOf("roof.con"));
    WaitFor("the roof", [this] { return window->Area().Has(1); });
    EXPECT_EQ(TextOf(1, "NameText"), "Roof");
}

} // namespace strativo
