#include "MainWindowTest.h"
#include "ui/QtPrompts.h"
#include "ui/WindowArea.h"

#include <QCloseEvent>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Closing : public MainWindowTest {
protected:
    void StartWithChanges() {
        Start();
        Choose("NewUValue");
        Insert("PLASTER");
        TheProject().constructions[1].layers.Edit(1).thickness = 13;
    }

    bool Close() { return program->close(); }

    static bool HelpIsOpen() {
        for (const QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == QLatin1String("HelpViewer") && widget->isVisible())
                return true;
        return false;
    }
    std::string Path(const char* name) { return (folder.Path() / name).string(); }
};

TEST_F(Closing, AnUnchangedProjectAsksNothing) {
    Start();
    Choose("NewUValue");
    EXPECT_TRUE(Close());
}

TEST_F(Closing, NameTypeAndAbsorptionAskNothing) {
    Start();
    Choose("NewUValue");
    Press(Qt::Key_C, Qt::AltModifier);
    Type("Wall");
    Press(Qt::Key_Return);
    EXPECT_EQ(TheProject().constructions[1].name, "Wall");
    EXPECT_TRUE(Close());
}

TEST_F(Closing, ChangesAreAskedAbout) {
    StartWithChanges();
    Answer("Cancel");
    EXPECT_FALSE(Close());
    EXPECT_EQ(LastBox().text, "Save changes to Untitled.con ?");
    EXPECT_EQ(LastBox().title, "Construction Have Changed");
    EXPECT_THAT(LastBox().buttons, testing::UnorderedElementsAre("Yes", "No", "Cancel"));
    EXPECT_TRUE(program->isVisible());
    EXPECT_TRUE(TheProject().changed);
}

TEST_F(Closing, NoCloses) {
    StartWithChanges();
    Answer("No");
    EXPECT_TRUE(Close());
    EXPECT_FALSE(program->isVisible());
}

TEST_F(Closing, YesSavesUnderTheNameAskedFor) {
    StartWithChanges();
    Answer("Yes");
    ChooseFile(Path("wall"));
    EXPECT_TRUE(Close());
    EXPECT_EQ(boxes[1].title, "Save Construction file as ");
    EXPECT_THAT(folder.Read("wall.con"), HasSubstr("!CONSTRUCTION 'Construction 1'"));
}

TEST_F(Closing, YesWithACancelledPromptStaysOpen) {
    StartWithChanges();
    Answer("Yes");
    CancelPrompt();
    EXPECT_FALSE(Close());
    EXPECT_TRUE(TheProject().changed);
}

TEST_F(Closing, ARefusedSaveCheckStaysOpenForANamedFileToo) {
    StartWithChanges();
    TheProject().constructionFile = Path("named.con");
    TheProject().constructions[1].layers.Edit(1).thickness = 0;
    Answer("Yes");
    Answer("No");
    EXPECT_FALSE(Close());
    EXPECT_EQ(boxes[0].text, "Save changes to " + Path("named.con") + " ?");
    EXPECT_EQ(boxes[1].title, "Zero thickness error");
}

TEST_F(Closing, AFailedWriteStaysOpenAndKeepsTheProject) {
    StartWithChanges();
    TheProject().constructionFile = Path("no/such/folder.con");
    Answer("Yes");
    Answer("OK");
    EXPECT_FALSE(Close());
    EXPECT_THAT(LastBox().text, HasSubstr("The file was not saved"));
    EXPECT_EQ(TheProject().constructionCount, 1);
}

TEST_F(Closing, ExitInTheFileMenuAsksToo) {
    StartWithChanges();
    Answer("Cancel");
    Choose("QuitProg");
    EXPECT_TRUE(program->isVisible());
    Answer("No");
    Choose("QuitProg");
    EXPECT_FALSE(program->isVisible());
}

TEST_F(Closing, EveryWayToCloseTakesTheHelpViewerAlong) {
    Start();
    Choose("HelpContents");
    EXPECT_TRUE(HelpIsOpen());
    EXPECT_TRUE(Close());
    EXPECT_FALSE(HelpIsOpen());
}

TEST_F(Closing, ACancelledCloseLeavesTheHelpViewerOpen) {
    StartWithChanges();
    Choose("HelpContents");
    Answer("Cancel");
    EXPECT_FALSE(Close());
    EXPECT_TRUE(HelpIsOpen());
    Answer("No");
    EXPECT_TRUE(Close());
    EXPECT_FALSE(HelpIsOpen());
}

TEST_F(Closing, TheEndOfTheProgramAsksNothingAndClosesTheHelpViewer) {
    StartWithChanges();
    Choose("HelpContents");
    ChooseFile(
        folder.Write("bad.con", "!CONSTRUCTION 'A'\r\n!PARTS\r\n_ 1 = @5 0.1 0\r\n!END\r\n"));
    Answer("OK");
    CancelPrompt();
    Answer("OK");
    TheProject().changed = false;
    Choose("OpenProject");
    EXPECT_EQ(boxes[1].text, "This construction file requires a user material library");
    EXPECT_EQ(LastBox().text, "Unable to load this file due to missing user library");
    EXPECT_TRUE(program->HasEnded());
    EXPECT_FALSE(HelpIsOpen());
    EXPECT_TRUE(Close()) << "no question is left";
}

TEST_F(Closing, ANewConstructionWithoutALibraryEndsTheProgram) {
    std::filesystem::remove(library);
    Start();
    Answer("OK");
    CancelPrompt();
    Answer("OK");
    program->findChild<QAction*>(QStringLiteral("NewUValue"))->trigger();
    EXPECT_EQ(boxes[0].text, "Standard material file is missing.");
    EXPECT_EQ(LastBox().text, "Cancel pressed aborting load");
    EXPECT_TRUE(program->HasEnded());
    EXPECT_EQ(TheProject().constructionCount, 0) << "nothing was made";
}

TEST_F(Closing, TheProgramCanEndBeforeItsEventLoop) {
    const std::string file =
        folder.Write("a.con", "!MATERIALS FILE = '" + (folder.Path() / "gone.lby").string()
                                  + "'\r\n!CONSTRUCTION 'A'\r\n!END\r\n");
    std::filesystem::remove(library);
    program = std::make_unique<UValueMDI>();
    Answer("OK");
    CancelPrompt();
    Answer("OK");
    program->MDIForm_Load(file);
    EXPECT_TRUE(program->HasEnded());
    EXPECT_EQ(LastBox().text, "Cancel pressed aborting load");
}

TEST_F(Closing, TheEndOfTheProgramStopsTheEventLoop) {
    Start();
    QTimer::singleShot(0, program.get(), [this] { program->EndByRequest(); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(program->HasEnded());
}

TEST_F(Closing, AFailureInAnActionBecomesAMessageAndTheProjectIsKept) {
    StartWithChanges();
    TheProject().standardLibrary[7].code = 1e9;
    SelectMaterial("FACE BRICK");
    const LayerClipboard before = TheProject().clipboard;
    Answer("OK");
    Press(Qt::Key_Return);
    EXPECT_EQ(LastBox().text, "Run-time error 6");
    EXPECT_EQ(LastBox().title, "Strativo");
    EXPECT_EQ(TheProject().clipboard, before);
    EXPECT_EQ(List(1)->count(), 1);
    TakeKeyboard(*program);
    Insert("INSULATION");
    EXPECT_EQ(List(1)->count(), 2);
}

} // namespace
} // namespace strativo
