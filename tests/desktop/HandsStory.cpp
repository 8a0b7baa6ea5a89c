#include "desktop/GlassWindows.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenuBar>

namespace strativo {

/// What the keyboard reaches, and how soon.
class HandsStory : public GlassWindows {
protected:
    void PutOnClipboard(const char* text) {
        InGui([text] { QApplication::clipboard()->setText(QString::fromUtf8(text)); });
    }

    /// The tool tip that is shown, or null.
    static QLabel* Tip() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->inherits("QTipLabel") && widget->isVisible())
                return qobject_cast<QLabel*>(widget);
        return nullptr;
    }
};

TEST_F(HandsStory, InsulationIsFoundByFiveLettersAndInsertedByEnter) {
    Write("../stdmat.lby", Lines({"1'AIR BRICK' 0.84 1700 800", "2'BLOCK' 0.19 600 1000",
                                  "3'GLASS FIBRE INSULATION' 0.035 25 1000",
                                  "4'PLASTER' 0.5 1300 1000", "5'ROOFING' 0.19 960 837"}));
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    Press({Key::ctrl, Key::tab});
    EXPECT_EQ(Focus(), "UValueList");
    Type("insul");
    Press(Key::enter);
    EXPECT_EQ(Layers(1), "[GLASS FIBRE INSULATION]");
}

TEST_F(HandsStory, TwentyTwoValuesComeFromASpreadsheetWithFourKeys) {
    OpenGlassTypes();
    AddType();
    Enter("CLEAR");
    EXPECT_EQ(Focus(), "Graph");
    PutOnClipboard("0,05\t0,8\t0,79\t0,78\t0,77\t0,75\t0,71\t0,64\t0,5\t0,28\t0\n");
    Press({Key::ctrl, KeyOf('v')});
    Press({Key::alt, KeyOf('a')});
    Press({Key::shift, Key::tab});
    EXPECT_EQ(Focus(), "Graph");
    PutOnClipboard("0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.2\n");
    Press({Key::ctrl, KeyOf('v')});
    Click(PlaceOf(box, "OkBut"));
    ChooseMenu("Filemenu", "SaveProject");
    ChooseFile("Save Construction file as ", PathOf("glass.con"));
    EXPECT_EQ(Read("glass.con"),
              Lines({"!MATERIALS FILE = ' '", "", "!WINDOW = 'CLEAR'", "!TRANSMISSION =",
                     "0.05, 0.8, 0.79, 0.78, 0.77, 0.75, 0.71, 0.64, 0.5, 0.28, 0.0",
                     "!ABSORPTION =", "0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.2",
                     "!END", ""}));
}

TEST_F(HandsStory, TheNextValueIsBegunBeforeEnterIsUp) {
    OpenGlassTypes();
    AddType();
    Enter("CLEAR");
    Press(Key::home);
    Type("0.8");
    Screen().PressKey(Key::enter);
    Screen().PressKey(KeyOf('.'));
    Screen().ReleaseKey(Key::enter);
    Screen().ReleaseKey(KeyOf('.'));
    Type("75");
    EXPECT_EQ(TextOf(box, "SelColumn"), "Transmission at 0 degrees");
    EXPECT_EQ(TextOf(box, "EditLevel"), ".75");
    Press(Key::home);
    EXPECT_EQ(TextOf(box, "EditLevel"), "0.800");
}

TEST_F(HandsStory, EscFromAMenuGivesTheKeysBackAtOnce) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    DoubleClick(Material("BLOCK"));
    Click(LayerRow(1, 0));
    Press(Key::f10);
    Press(Key::down);
    Press(Key::escape);
    Enter("105");
    EXPECT_EQ(TextOf(1, "EditThick"), "105");
}

TEST_F(HandsStory, EnterPressesTheFocusedButton) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    InGui([this] { Control(1, "VWConComments")->setFocus(); });
    Press(Key::enter);
    WaitForBox("Comments");
}

TEST_F(HandsStory, AMessageAtTheStartStandsOverTheMainWindow) {
    Start("missing.con");
    const auto [message, main] = InGui([this] {
        return std::pair(QApplication::activeModalWidget()->frameGeometry(),
                         window->frameGeometry());
    });
    EXPECT_TRUE(main.contains(message));
}

TEST_F(HandsStory, AToolTipLeavesTheRowUnderThePointerFree) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    DoubleClick(Material("BLOCK"));
    const QPoint place = LayerRow(1, 0);
    Screen().MovePointer(place.x() + 3, place.y());
    Screen().MovePointer(place.x(), place.y());
    WaitFor("the tool tip", [] { return Tip() != nullptr; });
    InGui([this] {
        const QWidget* list = Control(1, "Construction");
        const QRect control(list->mapToGlobal(QPoint(0, 0)), list->size());
        EXPECT_FALSE(control.intersects(Tip()->geometry()));
        return true;
    });
}

} // namespace strativo
