#include "desktop/FileDrag.h"
#include "desktop/GlassWindows.h"
#include "desktop/TwoWindows.h"

#include <gmock/gmock.h>

namespace strativo {

/// A user's whole day.
class DayStory : public GlassWindows {
protected:
    void BuildTheWall() {
        Drag(Material("FACE BRICK"), LayerRow(1, 0));
        Enter("105");
        Drag(Material("INSULATION"), LayerRow(1, 5));
        Enter("80");
        Drag(Material("PLASTER"), LayerRow(1, 5));
        Enter("13");
        Press({Key::alt, KeyOf('c')});
        Enter("Wall");
        EXPECT_EQ(TextOf(1, "Result"), "0.38");
    }

    void MakeTheRoofOfTheWall() {
        Click(LayerRow(1, 0));
        Press({Key::ctrl, KeyOf('a')});
        Hold(Key::ctrl);
        Drag(LayerRow(1, 0), LayerRow(2, 3));
        LetGo(Key::ctrl);
        Drag(LayerRow(2, 2), LayerRow(2, 0));
        EXPECT_EQ(Layers(2), "PLASTER, FACE BRICK, INSULATION");
        Click(LayerRow(2, 2));
        Enter("120");
        Press({Key::alt, KeyOf('c')});
        Enter("Roof");
        EXPECT_EQ(TextOf(2, "Result"), "0.27");
    }

    void DrawAndImportGlass() {
        Write("other.con", Lines(tinted));
        ChooseMenu("Editmenu", "EditWin");
        AddType();
        Enter("CLEAR");
        Drag(PointOf(2, 0) + QPoint(0, -1), PointOf(2, 0.8) + QPoint(0, -1));
        Click(PlaceOf(box, "OkBut"));
        Click(PlaceOf(glass, "WFLoad"));
        ChooseFile("Open Construction file", PathOf("other.con"));
        EXPECT_THAT(Names(), testing::ElementsAre("CLEAR", "TINTED"));
        Click(PlaceOf(glass, "Closebut"));
    }

    void Quit() {
        ChooseMenu("Filemenu", "QuitProg");
        WaitFor("the end of the program", [this] { return !window->isVisible(); });
    }

    void ExpectSameWhenSavedAs(const std::string& name) {
        EXPECT_EQ(TextOf(1, "Result"), "0.38");
        EXPECT_EQ(TextOf(2, "Result"), "0.27");
        ChooseMenu("Filemenu", "SaveProjectAs");
        ChooseFile("Save Construction file as ", PathOf(name));
        EXPECT_EQ(Read(name), Read("day.con"));
    }

    const std::vector<std::string> tinted = {
        "!WINDOW = 'TINTED'",
        "!TRANSMISSION =",
        "0.4, 0.5, 0.5, 0.5, 0.5, 0.4, 0.4, 0.3, 0.2, 0.1, 0.0",
        "!ABSORPTION =",
        "0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1",
        "!END",
        ""};
};

TEST_F(DayStory, FromTheFirstConstructionToTheFileOpenedAgain) {
    Start();
    ChooseMenu("Filemenu", "NewUValue");
    ChooseMenu("Filemenu", "NewUValue");
    MoveWindow(2, QPoint(560, 0));
    BuildTheWall();
    MakeTheRoofOfTheWall();
    DrawAndImportGlass();
    ChooseMenu("Filemenu", "SaveProject");
    ChooseFile("Save Construction file as ", PathOf("day.con"));
    Quit();
    EXPECT_EQ(Read("day.con"), Lines({"!MATERIALS FILE = '..\\stdmat.lby'",
                                      "",
                                      "!CONSTRUCTION 'Wall'",
                                      "!TYPE OPAQUE",
                                      "!PARTS",
                                      FaceBrick(1),
                                      Insulation(2),
                                      Plaster(3),
                                      "!END",
                                      "",
                                      "!CONSTRUCTION 'Roof'",
                                      "!TYPE OPAQUE",
                                      "!PARTS",
                                      Plaster(1),
                                      FaceBrick(2),
                                      "_ 3 =       41      0.120      0            * INSULATION",
                                      "!END",
                                      "",
                                      "!WINDOW = 'CLEAR'",
                                      "!TRANSMISSION =",
                                      "0.0, 0.8, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0",
                                      "!ABSORPTION =",
                                      "0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0",
                                      "!END",
                                      ""})
                                   + Lines(tinted));
    Start("day.con");
    ExpectSameWhenSavedAs("again.con");
    Quit();
    Start();
    FileDrag(*this, {FileUrl(PathOf("day.con"))}).DropOn(PlaceOf(dialog, "UValueList"));
    WaitFor("the file to be open", [this] { return window->ConstructionWindow(2) != nullptr; });
    WaitForInput();
    ExpectSameWhenSavedAs("once-more.con");
}

} // namespace strativo
