#include "MainWindowTest.h"
#include "edit/GlassTypes.h"
#include "ui/LayerList.h"
#include "ui/WINFORM.h"
#include "ui/WindowArea.h"

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A construction of three layers in the main window.
class Undo : public MainWindowTest {
protected:
    void Open() {
        Start();
        Choose("NewUValue");
        for (const char* material : {"PLASTER", "INSULATION", "FACE BRICK"})
            Insert(material);
        ClickLine(List(1), 0);
    }
    void Back() { Press(Qt::Key_Z, Qt::ControlModifier); }
    void Again() { Press(Qt::Key_Y, Qt::ControlModifier); }
    std::string Said() { return program->statusBar()->currentMessage().toStdString(); }
    std::vector<std::string> LayerMenu() {
        emit List(1)->customContextMenuRequested({5, 5});
        auto* menu = program->findChild<QMenu*>(QStringLiteral("LayerMenu"));
        std::vector<std::string> captions;
        for (const QAction* item : menu->actions())
            captions.push_back(item->isSeparator() ? "-" : item->text().toStdString());
        undoEnabled = menu->actions().front()->isEnabled();
        menu->close();
        return captions;
    }

    bool undoEnabled = false;
};

TEST_F(Undo, TakesADeletionBackAndSaysSo) {
    Open();
    const std::vector<std::string> before = LayersShown(1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(LayersShown(1).size(), 2);
    EXPECT_EQ(Said(), "Deletion of 1 layer. Ctrl+Z takes it back");
    Back();
    EXPECT_EQ(LayersShown(1), before);
    EXPECT_THAT(MarksShown(1), ElementsAre(0));
    EXPECT_EQ(Said(), "Taken back: deletion of 1 layer. Ctrl+Y does it again");
    EXPECT_EQ(Focus(), "Construction");
    Again();
    EXPECT_EQ(LayersShown(1).size(), 2);
    Back();
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(LayersShown(1).size(), 2);
    EXPECT_EQ(Said(), "Done again: deletion of 1 layer. Ctrl+Z takes it back");
}

TEST_F(Undo, SaysWhenThereIsNothingToTakeBack) {
    Start();
    Back();
    EXPECT_EQ(Said(), "There is nothing to take back");
    Again();
    EXPECT_EQ(Said(), "There is nothing to do again");
}

TEST_F(Undo, WorksFromTheMaterialListAndBringsTheConstructionToTheFront) {
    Open();
    SelectMaterial("PLASTER");
    Press(Qt::Key_Return);
    EXPECT_EQ(LayersShown(1).size(), 4);
    ASSERT_EQ(Area().Active(), UValueMDI::dialogId);
    Back();
    EXPECT_EQ(LayersShown(1).size(), 3);
    EXPECT_EQ(Area().Active(), 1);
}

TEST_F(Undo, BelongsToAFieldThatHasTheFocus) {
    Open();
    Press(Qt::Key_Delete);
    auto* name = Find<QLineEdit>(1, "NameText");
    name->setFocus();
    name->selectAll();
    Type("Roof");
    Back();
    EXPECT_NE(name->text(), QStringLiteral("Roof"));
    Again();
    EXPECT_EQ(name->text(), QStringLiteral("Roof"));
    EXPECT_EQ(LayersShown(1).size(), 2) << "the layers stay deleted";
    EXPECT_EQ(TheProject().constructions[1].name, "Construction 1");
}

TEST_F(Undo, IsNotOfferedAnyMoreForWhatLiesBelowALaterStep) {
    Open();
    Press(Qt::Key_Delete);
    EXPECT_EQ(Said(), "Deletion of 1 layer. Ctrl+Z takes it back");
    ClickLine(List(1), 1);
    EXPECT_EQ(Said(), "Deletion of 1 layer. Ctrl+Z takes it back") << "nothing has changed";
    Insert("PLASTER");
    EXPECT_EQ(Said(), "");
    Back();
    EXPECT_THAT(Said(), HasSubstr("Ctrl+Y does it again"));
    Insert("PLASTER");
    EXPECT_EQ(Said(), "") << "there is nothing to do again";
}

TEST_F(Undo, IsNotOfferedAnyMoreInAnotherProject) {
    Open();
    Press(Qt::Key_Delete);
    Answer("Yes");
    Press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(TheProject().constructionCount, 0);
    EXPECT_EQ(Said(), "");
}

TEST_F(Undo, BringsARemovedConstructionBackToItsPlace) {
    Open();
    MoveWindow(1, {137, 83});
    Choose("NewUValue");
    Area().Activate(1);
    Choose("CloseUValue");
    EXPECT_EQ(Said(), "Removal of construction 1. Ctrl+Z takes it back");
    EXPECT_FALSE(Area().Has(1));
    Back();
    ASSERT_TRUE(Area().Has(1));
    EXPECT_EQ(Area().Position(1), QPoint(137, 83));
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_EQ(LayersShown(1).size(), 3);
}

TEST_F(Undo, TakesANewConstructionAwayWithItsWindow) {
    Open();
    Choose("NewUValue");
    MoveWindow(2, {211, 64});
    Back();
    EXPECT_FALSE(Area().Has(2));
    EXPECT_EQ(Area().Active(), 1);
    Again();
    ASSERT_TRUE(Area().Has(2));
    EXPECT_EQ(Area().Position(2), QPoint(211, 64));
    EXPECT_EQ(Area().Active(), 2);
}

TEST_F(Undo, ScrollsTheListToWhereItWas) {
    Open();
    for (int i = 0; i < 9; ++i)
        Insert("PLASTER");
    QScrollBar* bar = List(1)->verticalScrollBar();
    bar->setValue(3);
    ClickLine(List(1), 5);
    ASSERT_EQ(bar->value(), 3);
    Press(Qt::Key_Delete);
    bar->setValue(0);
    ClickLine(List(1), 0);
    Back();
    EXPECT_EQ(bar->value(), 3);
    EXPECT_THAT(MarksShown(1), ElementsAre(5));
}

TEST_F(Undo, StandsOnTopOfTheLayerListsMenu) {
    Open();
    Press(Qt::Key_X, Qt::ControlModifier);
    std::vector<std::string> captions = LayerMenu();
    EXPECT_TRUE(undoEnabled);
    captions.resize(4);
    EXPECT_THAT(captions, ElementsAre("Undo cut of 1 layer\tCtrl+Z", "Redo \tCtrl+Y", "-",
                                      "Cu&t                   Ctrl+X   "));
    program->findChild<QAction*>(QStringLiteral("Undo"))->trigger();
    EXPECT_EQ(LayersShown(1).size(), 3);
    EXPECT_EQ(LayerMenu()[1], "Redo cut of 1 layer\tCtrl+Y");
}

TEST_F(Undo, ShowsAmpersandsOfANameInTheMenu) {
    Open();
    TheProject().constructions[1].layers.Edit(1).name = "A & B";
    Type("25");
    Press(Qt::Key_Return);
    EXPECT_EQ(LayerMenu().front(), "Undo thickness of A && B\tCtrl+Z");
}

TEST_F(Undo, EndsWhenTheProjectIsReplaced) {
    Open();
    Press(Qt::Key_Delete);
    Answer("Yes");
    Choose("NewProject");
    Back();
    EXPECT_EQ(TheProject().constructionCount, 0);
    EXPECT_EQ(Said(), "There is nothing to take back");
}

TEST_F(Undo, ShowsAGlassTypeThatCameBackInItsWindow) {
    Open();
    AddGlassType(TheProject(), "CLEAR");
    Choose("EditWin");
    auto* glass = program->findChild<WinForm*>();
    auto* list = glass->findChild<QListWidget*>(QStringLiteral("WinList"));
    list->setCurrentRow(0);
    Answer("Yes");
    glass->findChild<QPushButton*>(QStringLiteral("DelBut"))->click();
    EXPECT_EQ(list->count(), 0);
    EXPECT_EQ(Said(), "Deletion of glass type CLEAR. Ctrl+Z takes it back");
    Area().Activate(1);
    Back();
    EXPECT_EQ(list->count(), 1);
    EXPECT_EQ(Area().Active(), UValueMDI::glassId);
}

TEST_F(Undo, TakesOneStepHoweverLongTheKeyIsHeld) {
    Open();
    const std::size_t before = LayersShown(1).size();
    Press(Qt::Key_Delete);
    Press(Qt::Key_Delete);
    for (int i = 0; i < 3; ++i) {
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier, QString(), i > 0);
        QApplication::sendEvent(List(1), &repeat);
    }
    EXPECT_EQ(LayersShown(1).size(), before - 1) << "only the press that is no repeat counts";
}

} // namespace
} // namespace strativo
