#include "MainWindowTest.h"
#include "ui/ChildWindow.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QLineEdit>
#include <QMenuBar>

namespace strativo {
namespace {

/// Which window has the keyboard after the focus moved in other ways than by a click.
class WindowFocus : public MainWindowTest {
protected:
    void StartWith(int constructions) {
        Start();
        for (int i = 0; i < constructions; ++i)
            Choose("NewUValue");
    }

    bool IsInside(int number) { return Window(number)->isAncestorOf(program->focusWidget()); }

    /// Types a name without ending the entry and opens a menu, which takes the focus temporarily.
    void TypeHalfAName() {
        Find<QLineEdit>(1, "NameText")->setFocus();
        Type("Half");
        program->menuBar()->setFocus(Qt::MenuBarFocusReason);
    }
};

TEST_F(WindowFocus, AnEmptyWindowLeavesNoKeysToTheWindowBefore) {
    StartWith(2);
    Insert("PLASTER");
    Area().Activate(1);
    Choose("CloseUValue");
    Choose("MakeIcon");
    Area().Activate(2);
    Area().Activate(1);
    ASSERT_EQ(Area().Active(), 1);
    EXPECT_FALSE(IsInside(2));
    Press(Qt::Key_Delete);
    EXPECT_EQ(List(2)->count(), 1);
    Area().Activate(2);
    EXPECT_TRUE(List(2)->hasFocus());
}

TEST_F(WindowFocus, GoesToNoIconWhenABoxClosesOverIcons) {
    StartWith(1);
    Area().SetMinimised(UValueMDI::dialogId, true);
    Choose("MakeIcon");
    ASSERT_EQ(Area().Active(), WindowArea::noWindow);
    CancelPrompt();
    Choose("SaveProjectAs");
    TakeKeyboard(*program);
    EXPECT_EQ(program->focusWidget(), nullptr);
    EXPECT_FALSE(TheProject().dialogActive);
}

TEST_F(WindowFocus, BackFromAMenuAnEntryGoesOn) {
    StartWith(1);
    TypeHalfAName();
    EXPECT_EQ(TextOf(1, "NameText"), "Half");
    Find<QLineEdit>(1, "NameText")->setFocus(Qt::MenuBarFocusReason);
    Type(" a wall");
    EXPECT_EQ(TextOf(1, "NameText"), "Half a wall");
}

TEST_F(WindowFocus, AnEntryIsRestoredWhenAMenuGivesTheFocusToAnotherControl) {
    StartWith(1);
    TypeHalfAName();
    Materials()->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(TextOf(1, "NameText"), "Construction 1");
    EXPECT_EQ(TheProject().constructions[1].name, "Construction 1");
}

TEST_F(WindowFocus, AnEntryIsRestoredWhenAnotherWindowIsChosenInAMenu) {
    StartWith(1);
    TypeHalfAName();
    Area().Activate(UValueMDI::dialogId);
    EXPECT_EQ(TextOf(1, "NameText"), "Construction 1");
}

TEST_F(WindowFocus, ReadingThatStopsEarlyActivatesTheLastWindowOfWhatWasRead) {
    StartWith(0);
    ChooseFile(
        folder.Write("half.con", "!MATERIALS FILE = '" + library
                                     + "'\r\n!CONSTRUCTION 'A'\r\n!END\r\n"
                                       "!CONSTRUCTION 'B'\r\n_ 1 = 12 0.1 0\r\n_ 2 =34\r\n"));
    Answer("OK");
    Choose("OpenProject");
    EXPECT_EQ(LastBox().text, "Construction file (p) is incorrect version");
    EXPECT_EQ(Area().Active(), 2);
    EXPECT_EQ(TheProject().currentConstruction, 2);
    EXPECT_FALSE(TheProject().dialogActive);
    EXPECT_TRUE(List(2)->hasFocus());
    EXPECT_EQ(List(2)->count(), 1);
    EXPECT_GT(Materials()->count(), 0) << "the library was loaded for the first construction";
}

} // namespace
} // namespace strativo
