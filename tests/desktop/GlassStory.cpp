#include "desktop/GlassWindows.h"

#include <gmock/gmock.h>

namespace strativo {

using testing::ElementsAre;

class GlassStory : public GlassWindows {};

TEST_F(GlassStory, ACurveIsDrawnWithMouseKeysAndTypedValues) {
    OpenGlassTypes();
    AddType();
    EXPECT_EQ(Focus(), "GlassText");
    Enter("CLEAR");
    EXPECT_EQ(Focus(), "Graph");
    EXPECT_FALSE(IsVisible(box, "EditLevel"));

    Drag(PointOf(2, 0) + QPoint(0, -1), PointOf(2, 0.8) + QPoint(0, -1));
    EXPECT_EQ(TextOf(box, "SelColumn"), "Transmission at 0 degrees");
    EXPECT_EQ(TextOf(box, "EditLevel"), "0.800");
    Press(Key::right);
    for (int i = 0; i < 3; ++i)
        Press(Key::pageUp);
    Press(Key::up);
    EXPECT_EQ(TextOf(box, "EditLevel"), "0.310");
    Press(Key::right);
    Click(PlaceOf(box, "EditLevel"));
    Enter("1.5");
    EXPECT_EQ(TextOf(box, "SelColumn"), "Transmission at 30 degrees");
    Press(Key::home);
    EXPECT_EQ(TextOf(box, "SelColumn"), "Diffuse transmission");
    Enter("0.5");
    EXPECT_EQ(TextOf(box, "EditLevel"), "0.800");
    Click(PlaceOf(box, "GlassProp_1"));
    EXPECT_EQ(TextOf(box, "SelColumn"), "Absorption at 0 degrees");
    Press(Key::pageUp);
    Click(PlaceOf(box, "OkBut"));
    EXPECT_THAT(Names(), ElementsAre("CLEAR"));

    ChooseMenu("Filemenu", "SaveProject");
    ChooseFile("Save Construction file as ", PathOf("glass.con"));
    EXPECT_EQ(Read("glass.con"),
              Lines({"!MATERIALS FILE = ' '", "", "!WINDOW = 'CLEAR'",
                     "!TRANSMISSION =", "0.5, 0.8, 0.31, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0",
                     "!ABSORPTION =", "0.0, 0.1, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0",
                     "!END", ""}));
}

namespace {

std::string FileWithTwoTypes() {
    return Lines(
        {"!WINDOW = 'TINTED'",
         "!TRANSMISSION =", "0.05, 0.8, 0.79, 0.78, 0.77, 0.75, 0.71, 0.64, 0.5, 0.28, 0.0",
         "!ABSORPTION =", "0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1",
         "!DIFFUSION =", "0.2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0", "!END", "!WINDOW = 'THIRD'", "!END"});
}

/// What saving gives once its types were imported beside a new one.
std::string FileWithThreeTypes() {
    const std::string nothing = "0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0";
    return Lines({"!MATERIALS FILE = ' '",
                  "",
                  "!WINDOW = 'TINTED'",
                  "!TRANSMISSION =",
                  "0.05, 0.8, 0.79, 0.78, 0.77, 0.75, 0.71, 0.64, 0.5, 0.28, 0.0",
                  "!ABSORPTION =",
                  "0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1",
                  "!DIFFUSION =",
                  "0.2, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0",
                  "!END",
                  "",
                  "!WINDOW = 'SECOND'",
                  "!TRANSMISSION =",
                  nothing,
                  "!ABSORPTION =",
                  nothing,
                  "!END",
                  "",
                  "!WINDOW = 'THIRD'",
                  "!TRANSMISSION =",
                  nothing,
                  "!ABSORPTION =",
                  nothing,
                  "!END",
                  ""});
}

} // namespace

TEST_F(GlassStory, NamesAreCheckedTypesDeletedAndImported) {
    Write("other.con", FileWithTwoTypes());
    OpenGlassTypes();
    AddType();
    Enter("CLEAR");
    Click(PlaceOf(box, "OkBut"));
    AddType();
    Click(PlaceOf(box, "OkBut"));
    Answer("Strativo", "The window type must have a name", "OK");
    EXPECT_EQ(Focus(), "GlassText");
    Type("CLEAR");
    Click(PlaceOf(box, "OkBut"));
    Answer("Strativo", "The name of the window must be unique", "OK");
    Type("SECOND");
    Click(PlaceOf(box, "OkBut"));
    EXPECT_THAT(Names(), ElementsAre("CLEAR", "SECOND"));

    ClickName(1);
    Click(PlaceOf(glass, "EditBut"));
    WaitForBox("Glass Properties");
    Press({Key::alt, KeyOf('n')});
    Type("CLEAR");
    Click(PlaceOf(box, "OkBut"));
    Answer("Strativo", "The name of the window must be unique", "OK");
    Press(Key::escape);
    EXPECT_THAT(Names(), ElementsAre("CLEAR", "SECOND"));

    ClickName(0);
    Click(PlaceOf(glass, "DelBut"));
    Answer("Delete Window Type", "Do you want to delete this window type?", "No");
    EXPECT_THAT(Names(), ElementsAre("CLEAR", "SECOND"));
    Click(PlaceOf(glass, "DelBut"));
    Answer("Delete Window Type", "Do you want to delete this window type?", "Yes");
    EXPECT_THAT(Names(), ElementsAre("SECOND"));
    Click(PlaceOf(glass, "WFLoad"));
    ChooseFile("Open Construction file", PathOf("other.con"));
    EXPECT_THAT(Names(), ElementsAre("TINTED", "SECOND", "THIRD"));

    ChooseMenu("Filemenu", "SaveProject");
    ChooseFile("Save Construction file as ", PathOf("glass.con"));
    EXPECT_EQ(Read("glass.con"), FileWithThreeTypes());
}

} // namespace strativo
