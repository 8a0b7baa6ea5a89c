#include "MainWindowTest.h"
#include "ui/LayerList.h"
#include "ui/WindowArea.h"

#include <QFocusEvent>
#include <QMenu>
#include <QScrollBar>

namespace strativo {
namespace {

using testing::ElementsAre;

/// Layers A, B, C, D, E in construction 1; A is current and marked.
class LayerSelection : public MainWindowTest {
protected:
    void StartWithFiveLayers() {
        Start();
        Choose("NewUValue");
        Construction& record = TheProject().constructions[1];
        for (int layer = 1; layer <= 5; ++layer) {
            record.layers.Edit(layer).name = std::string(1, static_cast<char>('A' + layer - 1));
            record.layers.Edit(layer).thickness = 10 * layer;
        }
        program->ShowProject();
        ClickLine(List(1), 0);
        TheProject().changed = false;
    }

    int Current() { return TheProject().constructions[1].currentLayer; }
    std::string Layers() { return LayerNames(TheProject(), 1); }

    /// Expects these marks, both in the list and in the layers.
    void ExpectMarked(const std::vector<int>& layers) {
        std::vector<int> lines;
        for (const int layer : layers)
            lines.push_back(layer - 1);
        EXPECT_EQ(MarksShown(1), lines);
        EXPECT_EQ(MarkedLayers(TheProject(), 1), layers);
        EXPECT_EQ(List(1)->currentRow(), Current() - 1);
    }

    void PressMouse(int line, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(List(1)->viewport(), Qt::LeftButton, modifiers,
                          LinePosition(List(1), line));
    }
    void ReleaseMouse(int line, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseRelease(List(1)->viewport(), Qt::LeftButton, modifiers,
                            LinePosition(List(1), line));
    }
};

TEST_F(LayerSelection, AClickMarksOneLineAndMakesItCurrent) {
    StartWithFiveLayers();
    ClickLine(List(1), 2);
    ExpectMarked({3});
    EXPECT_EQ(Current(), 3);
    EXPECT_EQ(TextOf(1, "ConName"), "C");
    EXPECT_EQ(TextOf(1, "EditThick"), "30");
    EXPECT_FALSE(TheProject().changed);
}

TEST_F(LayerSelection, ControlClickAddsAndTakesAway) {
    StartWithFiveLayers();
    ClickLine(List(1), 1);
    ClickLine(List(1), 3, Qt::ControlModifier);
    ExpectMarked({2, 4});
    EXPECT_EQ(Current(), 4);
    ClickLine(List(1), 1, Qt::ControlModifier);
    ExpectMarked({4});
    EXPECT_EQ(Current(), 2) << "the line last touched, marked or not";
}

TEST_F(LayerSelection, ShiftClickMarksARange) {
    StartWithFiveLayers();
    ClickLine(List(1), 3);
    ClickLine(List(1), 1, Qt::ShiftModifier);
    ExpectMarked({2, 3, 4});
    ClickLine(List(1), 4, Qt::ShiftModifier);
    ExpectMarked({4, 5});
    EXPECT_EQ(Current(), 5);
}

TEST_F(LayerSelection, ShiftAndArrowsExtendFromTheLineClickedLast) {
    StartWithFiveLayers();
    Press(Qt::Key_Down);
    ExpectMarked({2});
    ClickLine(List(1), 3);
    Press(Qt::Key_Up, Qt::ShiftModifier);
    ExpectMarked({3, 4});
    Press(Qt::Key_Up, Qt::ShiftModifier);
    ExpectMarked({2, 3, 4});
    Press(Qt::Key_End, Qt::ShiftModifier);
    ExpectMarked({4, 5});
    Press(Qt::Key_Home, Qt::ShiftModifier);
    ExpectMarked({1, 2, 3, 4});
    EXPECT_EQ(Current(), 1);
    Press(Qt::Key_PageDown, Qt::ShiftModifier);
    ExpectMarked({4, 5});
    Press(Qt::Key_PageUp, Qt::ShiftModifier);
    ExpectMarked({1, 2, 3, 4});
}

TEST_F(LayerSelection, ShiftAndArrowsExtendFromTheLayerPastedLast) {
    StartWithFiveLayers();
    ClickLine(List(1), 2);
    Press(Qt::Key_C, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    ExpectMarked({4});
    Press(Qt::Key_Down, Qt::ShiftModifier);
    ExpectMarked({4, 5});
}

TEST_F(LayerSelection, ArrowsMoveTheCurrentLayer) {
    StartWithFiveLayers();
    Press(Qt::Key_Down);
    EXPECT_EQ(TextOf(1, "ConName"), "B");
    EXPECT_EQ(TextOf(1, "EditThick"), "20");
    Press(Qt::Key_End);
    ExpectMarked({5});
    Press(Qt::Key_PageUp);
    ExpectMarked({1});
}

TEST_F(LayerSelection, LettersMoveToALayerOfThatName) {
    StartWithFiveLayers();
    Press(Qt::Key_D);
    ExpectMarked({4});
    EXPECT_EQ(Current(), 4);
}

TEST_F(LayerSelection, ControlAMarksAllLines) {
    StartWithFiveLayers();
    ClickLine(List(1), 2);
    Press(Qt::Key_A, Qt::ControlModifier);
    ExpectMarked({1, 2, 3, 4, 5});
    EXPECT_EQ(Current(), 3);
}

TEST_F(LayerSelection, MerelyGettingTheFocusMovesNothing) {
    StartWithFiveLayers();
    ClickLine(List(1), 0, Qt::ControlModifier);
    ClickLine(List(1), 4, Qt::ControlModifier);
    Find(1, "NameText")->setFocus();
    List(1)->setFocus();
    ExpectMarked({5});
    EXPECT_EQ(Current(), 5);
}

TEST_F(LayerSelection, AFocusedListWithoutACurrentLayerTouchesNone) {
    StartWithFiveLayers();
    Mark(TheProject(), 1, {}, 0);
    program->ShowProject();
    Find(1, "NameText")->setFocus();
    List(1)->setFocus();
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(List(1)->currentRow(), -1);
}

TEST_F(LayerSelection, AClickBelowTheLastLineChangesNothing) {
    StartWithFiveLayers();
    QTest::mouseClick(List(1)->viewport(), Qt::LeftButton, {}, QPoint(60, 7 * rowHeight + 3));
    ExpectMarked({1});
}

TEST_F(LayerSelection, APressOnAMarkedLineKeepsTheMarksUntilRelease) {
    StartWithFiveLayers();
    ClickLine(List(1), 2, Qt::ShiftModifier);
    PressMouse(1);
    ExpectMarked({1, 2, 3});
    ReleaseMouse(1);
    ExpectMarked({2});
}

TEST_F(LayerSelection, ControlTogglesOnRelease) {
    StartWithFiveLayers();
    ClickLine(List(1), 2, Qt::ShiftModifier);
    PressMouse(1, Qt::ControlModifier);
    ExpectMarked({1, 2, 3});
    ReleaseMouse(1, Qt::ControlModifier);
    ExpectMarked({1, 3});
}

TEST_F(LayerSelection, ADoubleClickIsAClick) {
    StartWithFiveLayers();
    QTest::mouseDClick(List(1)->viewport(), Qt::LeftButton, {}, LinePosition(List(1), 2));
    ExpectMarked({3});
    EXPECT_FALSE(TheProject().changed);
}

TEST_F(LayerSelection, MovingWithinTheDragDistanceIsStillAClick) {
    StartWithFiveLayers();
    ClickLine(List(1), 2, Qt::ShiftModifier);
    PressMouse(1);
    MoveMouse(List(1), LinePosition(List(1), 1) + QPoint(2, 2));
    ExpectMarked({1, 2, 3});
    EXPECT_EQ(TheProject().drag.source, 0);
    ReleaseMouse(1);
    ExpectMarked({2});
}

TEST_F(LayerSelection, MovingAcrossLinesMarksNoRange) {
    StartWithFiveLayers();
    StartDrag(List(1), 1);
    MoveMouse(List(1), LinePosition(List(1), 4));
    ExpectMarked({2});
}

TEST_F(LayerSelection, TheContextMenuIsAboutTheLineUnderThePointer) {
    StartWithFiveLayers();
    QTest::mouseClick(List(1)->viewport(), Qt::RightButton, {}, LinePosition(List(1), 3));
    ExpectMarked({4});
    ClickLine(List(1), 2, Qt::ShiftModifier);
    QTest::mouseClick(List(1)->viewport(), Qt::RightButton, {}, LinePosition(List(1), 2));
    EXPECT_EQ(MarksShown(1).size(), 2U) << "marked lines stay marked";
}

TEST_F(LayerSelection, TheContextMenuHasTheItemsOfTheEditMenuBetweenOthers) {
    StartWithFiveLayers();
    emit List(1)->customContextMenuRequested(QPoint(5, 5));
    auto* menu = program->findChild<QMenu*>(QStringLiteral("LayerMenu"));
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->isVisible());
    const QList<QAction*> items = menu->actions();
    const QList<QAction*> edit = Menu("Editmenu")->actions();
    constexpr int before = 3; // undo, redo and a separator
    ASSERT_EQ(items.size(), before + edit.size() + 2);
    for (int item = 0; item < edit.size(); ++item)
        EXPECT_EQ(items[before + item], edit[item]);
    EXPECT_EQ(items.last()->text(), QStringLiteral("Section\tF9"));
    EXPECT_TRUE(IsEnabled("Edit_delete"));
    menu->close();
}

TEST_F(LayerSelection, DeleteRemovesTheMarkedLinesOnRelease) {
    StartWithFiveLayers();
    ClickLine(List(1), 2);
    QTest::keyPress(List(1), Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ABCDE");
    QTest::keyRelease(List(1), Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ABDE");
    ExpectMarked({3});
    Press(Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ABE");
    ClickLine(List(1), 2);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Delete, Qt::KeypadModifier);
    EXPECT_EQ(Layers(), "A");
    EXPECT_TRUE(TheProject().changed);
}

TEST_F(LayerSelection, DeleteHeldDownRemovesOnce) {
    StartWithFiveLayers();
    QTest::keyPress(List(1), Qt::Key_Delete);
    for (int i = 0; i < 14; ++i) {
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Delete, {}, QString(), true);
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Delete, {}, QString(), true);
        QApplication::sendEvent(List(1), &up);
        QApplication::sendEvent(List(1), &down);
    }
    EXPECT_EQ(Layers(), "ABCDE");
    QTest::keyRelease(List(1), Qt::Key_Delete);
    EXPECT_EQ(Layers(), "BCDE");
}

TEST_F(LayerSelection, DeletePressedElsewhereRemovesNothing) {
    StartWithFiveLayers();
    QTest::keyRelease(List(1), Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ABCDE");
    QTest::keyPress(List(1), Qt::Key_Delete);
    Find(1, "NameText")->setFocus();
    List(1)->setFocus();
    QTest::keyRelease(List(1), Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ABCDE");
}

TEST_F(LayerSelection, DeleteThatOnlyRepeatsHereRemovesNothing) {
    StartWithFiveLayers();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Delete, {}, QString(), true);
    QApplication::sendEvent(List(1), &repeated);
    QTest::keyRelease(List(1), Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ABCDE") << "the key went down in a box that has closed";
}

TEST_F(LayerSelection, DeleteOfTheLastLineGoesOnWithTheOneThatIsLastThen) {
    StartWithFiveLayers();
    ClickLine(List(1), 2);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ABDE");
    ExpectMarked({3});
    ClickLine(List(1), 3);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ABD");
    ExpectMarked({3});
    ClickLine(List(1), 0);
    ClickLine(List(1), 2, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Layers(), "B");
    ExpectMarked({1});
}

TEST_F(LayerSelection, AClickLeavesEmptySlotsWhereTheyAre) {
    StartWithFiveLayers();
    TheProject().constructions[1].layers.Edit(2) = Layer();
    program->ShowProject();
    const std::string result = TextOf(1, "Result");
    ClickLine(List(1), 1);
    EXPECT_EQ(TextOf(1, "ConName"), "C");
    EXPECT_EQ(TextOf(1, "EditThick"), "30");
    EXPECT_THAT(MarksShown(1), ElementsAre(1));
    EXPECT_EQ(TheProject().constructions[1].layers[3].name, "C");
    program->ShowProject();
    EXPECT_EQ(TextOf(1, "Result"), result);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Layers(), "ADE");
    ExpectMarked({2});
}

TEST_F(LayerSelection, DeleteWithAModifierRemovesNothing) {
    StartWithFiveLayers();
    for (const Qt::KeyboardModifier modifier :
         {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        Press(Qt::Key_Delete, modifier);
    EXPECT_EQ(Layers(), "ABCDE");
}

TEST_F(LayerSelection, SeveralMarkedLinesGoTogether) {
    StartWithFiveLayers();
    ClickLine(List(1), 3, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Layers(), "BCE");
    EXPECT_EQ(Current(), 3);
    ExpectMarked({3});
}

TEST_F(LayerSelection, CopiesGoBehindTheCurrentLayerAndAreMarked) {
    StartWithFiveLayers();
    ClickLine(List(1), 1);
    ClickLine(List(1), 3, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    ClickLine(List(1), 4);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Layers(), "ABCDEBD");
    EXPECT_EQ(Current(), 7);
    ExpectMarked({6, 7});
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(Layers(), "ABCDEBBDD");
}

TEST_F(LayerSelection, EnterInTheListChangesNothing) {
    StartWithFiveLayers();
    Press(Qt::Key_Return);
    Press(Qt::Key_Enter);
    EXPECT_EQ(Layers(), "ABCDE");
    EXPECT_EQ(Focus(), "Construction");
    ExpectMarked({1});
}

TEST_F(LayerSelection, ALineBelowTheVisibleOnesIsScrolledTo) {
    StartWithFiveLayers();
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    Press(Qt::Key_End);
    Press(Qt::Key_V, Qt::ControlModifier);
    Press(Qt::Key_End);
    Press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(List(1)->count(), 15);
    const QRect line = List(1)->visualItemRect(List(1)->item(14));
    EXPECT_TRUE(List(1)->viewport()->rect().contains(line.center()));
}

/// The pixels of a line's left end in the list.
QImage LeftEnd(QListWidget* list, int line) {
    const QRect row = list->visualItemRect(list->item(line));
    return list->viewport()->grab(QRect(0, row.top(), 6, row.height())).toImage();
}

TEST_F(LayerSelection, TheFocusedLineCanBeSeenMarkedOrNot) {
    StartWithFiveLayers();
    TakeKeyboard(*program);
    List(1)->setFocus();
    ClickLine(List(1), 2);
    const QImage marked = LeftEnd(List(1), 2);
    ClickLine(List(1), 3, Qt::ControlModifier);
    EXPECT_NE(LeftEnd(List(1), 2), marked) << "the focus has gone on";
    const QImage unmarkedWithFocus = [&] {
        ClickLine(List(1), 3, Qt::ControlModifier);
        return LeftEnd(List(1), 3);
    }();
    EXPECT_THAT(MarksShown(1), ElementsAre(2));
    EXPECT_NE(unmarkedWithFocus, LeftEnd(List(1), 4)) << "which is neither marked nor focused";
}

TEST_F(LayerSelection, TheViewDoesNotJumpAfterAMove) {
    StartWithFiveLayers();
    Construction& record = TheProject().constructions[1];
    for (int layer = 6; layer <= 15; ++layer)
        record.layers.Edit(layer).name = "L" + std::to_string(layer);
    program->ShowProject();
    auto* list = dynamic_cast<LayerList*>(List(1));
    ClickLine(list, 7);
    for (const int top : {3, 6}) {
        list->verticalScrollBar()->setValue(top);
        DragLine(list, 8, list, 4);
        EXPECT_EQ(list->TopLine(), top);
        DragLine(list, 9, list, 5);
        EXPECT_EQ(list->TopLine(), top);
    }
}

} // namespace
} // namespace strativo
