#include "desktop/FileDrag.h"
#include "desktop/TwoWindows.h"
#include "ui/WindowArea.h"

namespace strativo {

class OpeningStory : public TwoWindows {
protected:
    void SetUp() override { Write(name, Pair({Block(1)}, {Plaster(1), Insulation(2)})); }

    /// Expects that the file with the odd name is open: a change is saved in it.
    void ExpectOpen() {
        WaitFor("the file to be open",
                [this] { return window->TheProject().constructionFile == PathOf(name); });
        WaitForInput();
        EXPECT_EQ(Layers(2), "PLASTER, INSULATION");
        Click(LayerRow(2, 0));
        Press(Key::del);
        ChooseMenu("Filemenu", "SaveProject");
        EXPECT_EQ(Read(name), Pair({Block(1)}, {Insulation(1)}));
    }

    QPoint EmptyPlace() {
        return InGui([this] {
            const QWidget& area = window->Area();
            return area.mapToGlobal(QPoint(20, area.height() - 20));
        });
    }

    const std::string name = "Häuser & Ω/mein Haus.con";
};

TEST_F(OpeningStory, ByTheCommandLine) {
    Start(PathOf(name));
    ExpectOpen();
}

TEST_F(OpeningStory, ByTheMenu) {
    Start();
    ChooseMenu("Filemenu", "OpenProject");
    ChooseFile("Open Construction file", PathOf(name));
    ExpectOpen();
}

TEST_F(OpeningStory, ByADropOnTheEmptyArea) {
    Start();
    FileDrag(*this, {FileUrl(PathOf(name))}).DropOn(EmptyPlace());
    ExpectOpen();
}

TEST_F(OpeningStory, ByADropOnALayerListWithoutAQuestionAboutChanges) {
    Open();
    Click(LayerRow(1, 0));
    Press(Key::del);
    FileDrag(*this, {FileUrl(PathOf(name))}).DropOn(LayerRow(1, 4));
    ExpectOpen();
    EXPECT_EQ(Read("pair.con"), Pair({FaceBrick(1), Block(2), Plaster(3)}, {Insulation(1)}));
}

TEST_F(OpeningStory, ByADropOnAnEntryField) {
    Open();
    FileDrag(*this, {FileUrl(PathOf(name))}).DropOn(PlaceOf(1, "NameText"));
    ExpectOpen();
}

TEST_F(OpeningStory, NothingOpensByOtherDrops) {
    Open();
    const std::string file = FileUrl(PathOf(name));
    FileDrag(*this, {file, FileUrl(PathOf("pair.con"))}).TryOn(EmptyPlace());
    FileDrag(*this, {FileUrl(folder.Path())}).TryOn(EmptyPlace());
    FileDrag(*this, {"http://example.org/house.con"}).TryOn(LayerRow(1, 1));
    ChooseMenu("Filemenu", "SaveProjectAs");
    WaitForBox("Save Construction file as ");
    FileDrag(*this, {file}).TryOn(EmptyPlace()); // not while a box is open
    ChooseFile("Save Construction file as ", PathOf("same.con"));
    EXPECT_EQ(Read("same.con"), Read("pair.con"));
}

TEST_F(OpeningStory, ACancelledPromptLeavesAnEmptyProject) {
    Open();
    ChooseMenu("Filemenu", "OpenProject");
    CancelPrompt("Open Construction file");
    EXPECT_EQ(ActiveWindow(), dialog);
    ChooseMenu("Filemenu", "SaveProjectAs");
    ChooseFile("Save Construction file as ", PathOf("empty.con"));
    EXPECT_EQ(Read("empty.con"), Lines({"!MATERIALS FILE = '../stdmat.lby'", ""}));
}

TEST_F(OpeningStory, AFileThatIsMissingIsReported) {
    Start("gone.con");
    Answer("Strativo", "Command line error\nConstruction file (p) is missing.", "OK");
    ChooseMenu("Filemenu", "OpenProject");
    ChooseFile("Open Construction file", PathOf(name));
    ExpectOpen();
}

TEST_F(OpeningStory, AMissingLibraryCanBeFoundElsewhere) {
    std::string bytes = Pair({Block(1)}, {Insulation(1)});
    bytes.replace(bytes.find("../stdmat"), 9, "elsewhere");
    Write("wall.con", bytes);
    Start("wall.con");
    Answer("Strativo", "Standard material file is missing.", "OK");
    ChooseFile("Open standard material file", (folder.Path() / "stdmat.lby").string());
    EXPECT_EQ(Layers(1), "BLOCK");
    ChooseMenu("Filemenu", "SaveProjectAs");
    ChooseFile("Save Construction file as ", PathOf("found.con"));
    bytes.replace(bytes.find("elsewhere.lby"), 13, (folder.Path() / "stdmat.lby").string());
    EXPECT_EQ(Read("found.con"), bytes);
}

TEST_F(OpeningStory, AMissingLibraryThatIsNotFoundEndsTheProgram) {
    std::string bytes = Pair({Block(1)}, {Insulation(1)});
    bytes.replace(bytes.find("../stdmat"), 9, "elsewhere");
    Write("wall.con", bytes);
    Start("wall.con");
    Answer("Strativo", "Standard material file is missing.", "OK");
    CancelPrompt("Open standard material file");
    Answer("Strativo", "Cancel pressed aborting load", "OK");
    WaitFor("the end of the program", [this] { return window->HasEnded(); });
    EXPECT_EQ(Read("wall.con"), bytes);
}

TEST_F(OpeningStory, AUserLibraryThatIsNotFoundEndsTheProgram) {
    const std::string bytes =
        Pair({"_ 1 =      @12      0.040      0            * HEMP"}, {Insulation(1)});
    Write("wall.con", bytes);
    Start("wall.con");
    Answer("User file Required", "This construction file requires a user material library", "OK");
    CancelPrompt("Open user material file");
    Answer("User file Required", "Unable to load this file due to missing user library", "OK");
    WaitFor("the end of the program", [this] { return window->HasEnded(); });
    EXPECT_EQ(Read("wall.con"), bytes);
}

} // namespace strativo
