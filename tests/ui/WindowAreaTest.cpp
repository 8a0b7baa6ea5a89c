#include "ui/WindowArea.h"

#include "MainWindowTest.h"
#include "ui/ChildWindow.h"
#include "ui/UValue.h"
#include "ui/UvalsDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <algorithm>
#include <set>

namespace strativo {
namespace {

using testing::ElementsAre;

class Windows : public MainWindowTest {
protected:
    void StartWith(int constructions) {
        Start();
        for (int i = 0; i < constructions; ++i)
            Choose("NewUValue");
    }

    ChildWindow* Frame(int number) {
        return qobject_cast<ChildWindow*>(Window(number)->parentWidget());
    }
    void Click(int number, const char* button) {
        QTest::mouseClick(Frame(number)->findChild<QToolButton*>(QLatin1String(button)),
                          Qt::LeftButton);
    }
    std::vector<QPoint> Positions(int count) {
        std::vector<QPoint> positions;
        for (int number = 1; number <= count; ++number)
            positions.push_back(Frame(number)->pos());
        return positions;
    }
};

TEST_F(Windows, ConstructionsAreCaptionedWithTheirNumbers) {
    StartWith(2);
    EXPECT_EQ(Frame(2)->windowTitle(), QStringLiteral("Construction 2"));
    EXPECT_EQ(Frame(2)->accessibleName(), QStringLiteral("Construction 2"));
}

TEST_F(Windows, ACloseBoxOfAConstructionDoesNothing) {
    StartWith(2);
    Click(2, "CloseButton");
    Click(1, "CloseButton");
    EXPECT_TRUE(Area().Has(1));
    EXPECT_TRUE(Area().Has(2));
    EXPECT_EQ(TheProject().constructionCount, 2);
}

TEST_F(Windows, ATitleDoubleClickDoesNotEnlarge) {
    StartWith(1);
    const QRect before = Frame(1)->geometry();
    QTest::mouseDClick(Frame(1), Qt::LeftButton, {}, QPoint(80, 10));
    EXPECT_EQ(Frame(1)->geometry(), before);
    EXPECT_EQ(Frame(1)->findChildren<QToolButton*>().size(), 2) << "minimise and close only";
}

TEST_F(Windows, AClickOnAWindowMakesItCurrent) {
    StartWith(2);
    QTest::mouseClick(Frame(1), Qt::LeftButton, {}, QPoint(80, 10));
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_EQ(TheProject().currentConstruction, 1);
    EXPECT_TRUE(List(1)->hasFocus());
}

TEST_F(Windows, FocusInAWindowMakesItCurrent) {
    StartWith(2);
    Find<QLineEdit>(1, "NameText")->setFocus();
    EXPECT_EQ(TheProject().currentConstruction, 1);
    EXPECT_EQ(Area().Active(), 1);
}

TEST_F(Windows, EachRemembersItsFocus) {
    StartWith(2);
    Find(2, "EditThick")->setFocus();
    Area().Activate(1);
    EXPECT_TRUE(List(1)->hasFocus());
    Area().Activate(2);
    EXPECT_EQ(Focus(), "EditThick");
}

TEST_F(Windows, MinimisingActivatesTheTopmostOfTheOthers) {
    StartWith(3);
    Area().Activate(1);
    Area().Activate(3);
    Click(3, "MinimiseButton");
    EXPECT_TRUE(Area().IsMinimised(3));
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_EQ(TheProject().currentConstruction, 1);
}

TEST_F(Windows, AnIconIsRestoredByItsButtonAndByADoubleClick) {
    StartWith(2);
    const QRect before = Frame(2)->geometry();
    Click(2, "MinimiseButton");
    EXPECT_NE(Frame(2)->geometry(), before);
    Click(2, "MinimiseButton");
    EXPECT_EQ(Frame(2)->geometry(), before);
    EXPECT_EQ(Area().Active(), 2);
    Click(2, "MinimiseButton");
    QTest::mouseDClick(Frame(2), Qt::LeftButton, {}, QPoint(40, 10));
    EXPECT_FALSE(Area().IsMinimised(2));
}

TEST_F(Windows, MakeAllIconsLeavesTheCurrentConstructionAlone) {
    StartWith(3);
    Area().Activate(1);
    TheProject().changed = false;
    Choose("MakeIcon");
    for (const int number : {1, 2, 3})
        EXPECT_TRUE(Area().IsMinimised(number)) << number;
    EXPECT_FALSE(Area().IsMinimised(UValueMDI::dialogId));
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    EXPECT_EQ(TheProject().currentConstruction, 1);
    EXPECT_FALSE(TheProject().changed);
}

TEST_F(Windows, MakeAllIconsWithNoConstructionShowsNothing) {
    StartWith(1);
    Choose("CloseUValue");
    Choose("MakeIcon");
    EXPECT_THAT(Area().Windows(), ElementsAre(UValueMDI::dialogId));
}

TEST_F(Windows, IconsStandSideBySideAlongTheBottom) {
    StartWith(3);
    Choose("MakeIcon");
    const int bottom = Area().height() - ChildWindow::IconSize().height();
    EXPECT_EQ(Frame(1)->pos(), QPoint(0, bottom));
    EXPECT_EQ(Frame(2)->pos(), QPoint(ChildWindow::IconSize().width(), bottom));
    Area().Activate(1);
    Choose("ArrangeIcons");
    EXPECT_EQ(Frame(2)->pos(), QPoint(0, bottom));
    Click(1, "MinimiseButton");
    EXPECT_EQ(Frame(1)->pos(), QPoint(2 * ChildWindow::IconSize().width(), bottom));
}

TEST_F(Windows, MakeAllIconsMakesAnEmptyWindowForARemovedConstruction) {
    StartWith(3);
    Area().Activate(2);
    Choose("CloseUValue");
    Choose("MakeIcon");
    ASSERT_TRUE(Area().Has(2));
    EXPECT_EQ(Area().Caption(2), QStringLiteral("Construction"));
    Area().Activate(2);
    EXPECT_FALSE(Window(2)->isEnabled());
    EXPECT_FALSE(IsEnabled("CloseUValue"));
    EXPECT_FALSE(IsEnabled("Edit_delete"));
    EXPECT_EQ(TheProject().constructionCount, 2);
    EXPECT_NE(TheProject().currentConstruction, 2);
    Click(2, "CloseButton");
    EXPECT_FALSE(Area().Has(2));
    EXPECT_EQ(TheProject().constructionCount, 2);
}

TEST_F(Windows, ANewConstructionTakesTheEmptyWindowOfItsSlot) {
    StartWith(2);
    Area().Activate(1);
    Choose("CloseUValue");
    Choose("MakeIcon");
    Choose("NewUValue");
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_FALSE(Area().IsMinimised(1));
    EXPECT_TRUE(Window(1)->isEnabled());
    EXPECT_EQ(Area().Caption(1), QStringLiteral("Construction 1"));
    EXPECT_EQ(TextOf(1, "NameText"), "Construction 1");
    EXPECT_TRUE(List(1)->hasFocus());
}

TEST_F(Windows, AnEmptyWindowThatWasOpenedIsTakenToo) {
    StartWith(2);
    Area().Activate(1);
    Choose("CloseUValue");
    Choose("MakeIcon");
    Area().Activate(1);
    ASSERT_FALSE(Window(1)->isEnabled());
    Choose("NewUValue");
    EXPECT_TRUE(Window(1)->isEnabled());
    EXPECT_EQ(TextOf(1, "IndexText"), "1");
    EXPECT_TRUE(List(1)->hasFocus());
}

TEST_F(Windows, ANewFileLeavesNoEmptyWindows) {
    StartWith(3);
    Area().Activate(2);
    Choose("CloseUValue");
    Choose("MakeIcon");
    Answer("Yes");
    Choose("NewProject");
    EXPECT_THAT(Area().Windows(), ElementsAre(UValueMDI::dialogId));
    EXPECT_EQ(TheProject().constructions.Size(), 1);
}

TEST_F(Windows, RemovingActivatesTheConstructionThatWasActiveBefore) {
    StartWith(4);
    Area().Activate(2);
    Area().Activate(4);
    Area().Activate(3);
    Choose("CloseUValue");
    EXPECT_EQ(TheProject().currentConstruction, 4);
    EXPECT_EQ(Area().Active(), 4);
    Choose("CloseUValue");
    EXPECT_EQ(TheProject().currentConstruction, 2);
    EXPECT_EQ(Area().Active(), 2);
    EXPECT_TRUE(TheProject().changed);
}

TEST_F(Windows, RemovingTheLastOneLeavesTheDialogActive) {
    StartWith(1);
    Choose("CloseUValue");
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    EXPECT_TRUE(TheProject().dialogActive);
}

TEST_F(Windows, CascadeMovesAndDoesNotResize) {
    StartWith(3);
    const QSize size = Frame(1)->size();
    const QSize dialogSize = program->Dialog().size();
    MoveWindow(1, {300, 200});
    MoveWindow(3, {100, 300});
    Choose("Cascade");
    const auto positions = Positions(3);
    EXPECT_EQ(std::set<int>({positions[0].x(), positions[1].x(), positions[2].x()}).size(), 3U);
    for (const QPoint& position : positions)
        EXPECT_EQ(position.x(), position.y());
    EXPECT_EQ(Frame(1)->size(), size);
    EXPECT_EQ(program->Dialog().size(), dialogSize);
}

TEST_F(Windows, CascadeFollowsTheOrderAndLeavesIconsAlone) {
    StartWith(3);
    Area().Activate(1);
    Click(2, "MinimiseButton");
    const QPoint icon = Frame(2)->pos();
    Choose("Cascade");
    EXPECT_EQ(Frame(2)->pos(), icon);
    EXPECT_TRUE(Area().IsMinimised(2));
    EXPECT_GT(Frame(1)->x(), Frame(3)->x()) << "the active one lies in front";
}

TEST_F(Windows, AWindowCannotBeMovedOutOfReach) {
    StartWith(1);
    MoveWindow(1, {5000, 5000});
    EXPECT_LE(Frame(1)->x(), Area().width() - 40);
    EXPECT_LE(Frame(1)->y(), Area().height() - ChildWindow::titleHeight);
    MoveWindow(1, {-5000, -5000});
    const auto* minimise = Frame(1)->findChild<QToolButton*>(QStringLiteral("MinimiseButton"));
    EXPECT_GE(minimise->mapTo(&Area(), QPoint()).x(), 40) << "the title left of the buttons";
    EXPECT_EQ(Frame(1)->y(), 0);
}

TEST_F(Windows, NewWindowsLieSideBySideWhileThereIsRoom) {
    StartWith(4);
    const QRect first = Frame(1)->geometry();
    EXPECT_EQ(first.topLeft(), QPoint(0, 0));
    EXPECT_EQ(Frame(2)->geometry(), first.translated(first.width(), 0));
    EXPECT_EQ(Frame(3)->geometry(), first.translated(0, first.height()));
    EXPECT_EQ(Frame(4)->pos(), QPoint(27, 27)) << "no room: cascaded, and no other covered wholly";
}

TEST_F(Windows, PlacesStartAnewWithANewFile) {
    StartWith(5);
    Answer("Yes");
    TheProject().changed = true;
    Choose("NewProject");
    Choose("NewUValue");
    Choose("NewUValue");
    EXPECT_EQ(Frame(1)->pos(), QPoint(0, 0));
    EXPECT_EQ(Frame(2)->pos(), QPoint(Frame(1)->width(), 0));
}

TEST_F(Windows, CascadeLeavesSelectMaterialInItsPlaceInSightAndNotActive) {
    StartWith(20);
    const QRect before = program->Dialog().parentWidget()->geometry();
    Choose("Cascade");
    const QWidget* frame = program->Dialog().parentWidget();
    EXPECT_EQ(frame->geometry(), before);
    EXPECT_EQ(Area().childAt(before.center()),
              program->Dialog().childAt(program->Dialog().mapFrom(&Area(), before.center())));
    EXPECT_EQ(Area().Active(), 20);
    EXPECT_TRUE(List(20)->hasFocus());
}

TEST_F(Windows, CascadeUsesAllPlacesThatFit) {
    StartWith(13);
    Choose("Cascade");
    std::set<int> lefts;
    for (const QPoint& position : Positions(13))
        lefts.insert(position.x());
    EXPECT_EQ(lefts.size(), 13U);
}

TEST_F(Windows, IconsKeepClearOfSelectMaterial) {
    StartWith(20);
    Choose("MakeIcon");
    const QRect dialog = program->Dialog().parentWidget()->geometry();
    int icons = 0;
    for (const auto* frame : Area().findChildren<ChildWindow*>()) {
        if (!frame->IsMinimised() || frame->isHidden())
            continue;
        ++icons;
        EXPECT_FALSE(frame->geometry().intersects(dialog)) << frame->Id();
        EXPECT_TRUE(Area().rect().contains(frame->geometry())) << frame->Id();
    }
    EXPECT_EQ(icons, 20);
}

TEST_F(Windows, ASmallerAreaHoldsAllWindowsThatFit) {
    StartWith(5);
    MoveWindow(1, {590, 330});
    program->resize(700, 500);
    QTest::qWait(1);
    for (const int number : {1, 2, 3, 4, 5})
        EXPECT_TRUE(Area().rect().contains(Frame(number)->geometry())) << number;
    EXPECT_TRUE(Area().rect().contains(program->Dialog().parentWidget()->geometry()));
}

TEST_F(Windows, ReturnWhenTheMainWindowHasItsSizeAgain) {
    StartWith(5);
    MoveWindow(1, {590, 330});
    const auto before = Positions(5);
    const QSize size = program->size();
    for (const QSize& smaller : {QSize(700, 500), QSize(300, 200)}) {
        program->resize(smaller);
        QTest::qWait(1);
        Area().Activate(2); // going through the windows leaves their places alone
        Area().Activate(1);
    }
    EXPECT_NE(Positions(5), before);
    program->resize(size);
    QTest::qWait(1);
    EXPECT_EQ(Positions(5), before);
}

TEST_F(Windows, AnActivatedWindowIsBroughtWhollyInside) {
    StartWith(2);
    MoveWindow(1, {900, 600});
    EXPECT_FALSE(Area().rect().contains(Frame(1)->geometry()));
    Area().Activate(2);
    Area().Activate(1);
    EXPECT_TRUE(Area().rect().contains(Frame(1)->geometry()));
}

TEST_F(Windows, APressOnTheBackgroundOfTheFrameKeepsTheMarks) {
    StartWith(1);
    Insert("PLASTER");
    QTest::mouseClick(Window(1), Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_THAT(MarksShown(1), ElementsAre(0));
}

} // namespace
} // namespace strativo
