#include "MainWindowTest.h"
#include "ui/WindowArea.h"

#include <QLineEdit>
#include <QStatusBar>

namespace strativo {
namespace {

/// Ctrl+N, Ctrl+O and Ctrl+S, which no menu item shows.
class CommandKeys : public MainWindowTest {
protected:
    void StartWithALayer() {
        Start();
        Choose("NewUValue");
        Insert("PLASTER");
        TheProject().constructions[1].layers.Edit(1).thickness = 100;
        Area().Activate(1);
        TakeKeyboard(*program);
    }
    std::string Said() const { return program->statusBar()->currentMessage().toStdString(); }
    std::string PathOf(const char* name) const { return (folder.Path() / name).string(); }
};

TEST_F(CommandKeys, ControlSSaves) {
    StartWithALayer();
    ChooseFile(PathOf("wall.con"));
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_NE(folder.Read("wall.con").find("PLASTER"), std::string::npos);
    EXPECT_FALSE(TheProject().changed);
    EXPECT_EQ(Said(), "Saved as wall.con in " + folder.Path().string());
}

TEST_F(CommandKeys, ControlSSaysWhyItDoesNothing) {
    StartWithALayer();
    TheProject().changed = false;
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(Said(), "Nothing counts as changed: Save construction file as... saves all, names, "
                      "types and absorptions too");
}

TEST_F(CommandKeys, ControlNBeginsANewProjectAfterTheQuestion) {
    StartWithALayer();
    Answer("No");
    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(LastBox().text, "Changes have not been saved.  Continue without saving?");
    EXPECT_EQ(TheProject().constructionCount, 1);
    Answer("Yes");
    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(TheProject().constructionCount, 0);
}

TEST_F(CommandKeys, ControlOOpensAFile) {
    Start();
    TakeKeyboard(*program);
    ChooseFile(folder.Write("roof.con", "!MATERIALS FILE = '" + library
                                            + "'\n!CONSTRUCTION 'Roof'\n_ 1 = 12 0.1 0\n!END\n"));
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(TextOf(1, "NameText"), "Roof");
}

TEST_F(CommandKeys, ActFromAnEntryFieldWithoutTakingItsText) {
    StartWithALayer();
    Find<QLineEdit>(1, "EditThick")->setFocus();
    Type("250");
    ChooseFile(PathOf("wall.con"));
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(TheProject().constructions[1].layers[1].thickness, 100);
    EXPECT_NE(folder.Read("wall.con").find(" 0.100 "), std::string::npos);
}

} // namespace
} // namespace strativo
