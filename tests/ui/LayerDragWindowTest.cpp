#include "MainWindowTest.h"
#include "ui/DragImage.h"
#include "ui/DragPayload.h"
#include "ui/LayerList.h"
#include "ui/WindowArea.h"

#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Construction 1 with layers A to D, construction 2 beside it with X and Y; 1 is active.
class LayerDragging : public MainWindowTest {
protected:
    void StartWithTwoWindows() {
        Start();
        Choose("NewUValue");
        Choose("NewUValue");
        MoveWindow(2, {500, 0});
        Fill(1, "ABCD");
        Fill(2, "XY");
        Area().Activate(1);
        TheProject().changed = false;
    }

    void Fill(int number, const std::string& names) {
        Construction& record = TheProject().constructions[number];
        for (std::size_t i = 0; i < names.size(); ++i)
            record.layers.Edit(static_cast<int>(i) + 1).name = names.substr(i, 1);
        record.currentLayer = 1;
        program->ShowProject();
    }

    std::string Layers(int number) { return LayerNames(TheProject(), number); }
    int Current(int number) { return TheProject().constructions[number].currentLayer; }
    /// The drag image of a visible row of construction 1, and what it drew last.
    DragImage* Image(int row) {
        const std::string name = "Label2_" + std::to_string(row);
        return dynamic_cast<DragImage*>(Find<QLabel>(1, name.c_str()));
    }
    const QPixmap& Picture(int row) { return Image(row)->Picture(); }
};

TEST_F(LayerDragging, MovesALineWithinItsList) {
    StartWithTwoWindows();
    DragLine(List(1), 0, List(1), 2);
    EXPECT_EQ(Layers(1), "BACD");
    DragLine(List(1), 3, List(1), 0);
    EXPECT_EQ(Layers(1), "DBAC");
    DragLine(List(1), 0, List(1), 8);
    EXPECT_EQ(Layers(1), "BACD");
    EXPECT_TRUE(TheProject().changed);
}

TEST_F(LayerDragging, ALineDroppedOnItselfStaysWhereItIs) {
    StartWithTwoWindows();
    DragLine(List(1), 1, List(1), 1);
    EXPECT_EQ(Layers(1), "ABCD");
    EXPECT_THAT(MarksShown(1), IsEmpty());
}

TEST_F(LayerDragging, MovesSeveralMarkedLinesTogether) {
    StartWithTwoWindows();
    ClickLine(List(1), 0);
    ClickLine(List(1), 1, Qt::ShiftModifier);
    DragLine(List(1), 0, List(1), 3);
    EXPECT_EQ(Layers(1), "CABD");
    EXPECT_EQ(Current(1), 2);
    EXPECT_THAT(MarksShown(1), IsEmpty());
    EXPECT_THAT(MarkedLayers(TheProject(), 1), IsEmpty());
}

TEST_F(LayerDragging, MovesToAnotherWindowAndMakesThatOneActive) {
    StartWithTwoWindows();
    DragLine(List(1), 1, List(2), 1);
    EXPECT_EQ(Layers(1), "ACD");
    EXPECT_EQ(Layers(2), "XBY");
    EXPECT_EQ(Area().Active(), 2);
    EXPECT_EQ(TheProject().currentConstruction, 2);
    EXPECT_EQ(Current(2), 2);
    EXPECT_EQ(Focus(), "Construction");
    EXPECT_TRUE(List(2)->hasFocus());
    EXPECT_THAT(LayersShown(1), ElementsAre("A", "C", "D"));
    EXPECT_THAT(LayersShown(2), ElementsAre("X", "B", "Y"));
}

TEST_F(LayerDragging, ControlAtTheStartCopies) {
    StartWithTwoWindows();
    DragLine(List(1), 1, List(2), 8, Qt::ControlModifier);
    EXPECT_EQ(Layers(1), "ABCD");
    EXPECT_EQ(Layers(2), "XYB");
    EXPECT_EQ(Current(2), 3);
}

TEST_F(LayerDragging, ControlPressedOnAMarkedLineTakesThatLineAlong) {
    StartWithTwoWindows();
    ClickLine(List(1), 0);
    ClickLine(List(1), 2, Qt::ControlModifier);
    DragLine(List(1), 2, List(2), 0, Qt::ControlModifier);
    EXPECT_EQ(Layers(2), "ACXY");
}

TEST_F(LayerDragging, AnUnmarkedLineThatIsPressedIsAmongThoseDragged) {
    StartWithTwoWindows();
    ClickLine(List(1), 0);
    DragLine(List(1), 3, List(2), 0, Qt::ControlModifier);
    EXPECT_EQ(Layers(2), "ADXY");
}

TEST_F(LayerDragging, ADragThatEndsNowhereChangesNothing) {
    StartWithTwoWindows();
    const LayerClipboard before = TheProject().clipboard;
    StartDrag(List(1), 1);
    EXPECT_EQ(Layers(1), "ABCD");
    EXPECT_EQ(TheProject().clipboard, before);
    EXPECT_FALSE(TheProject().changed);
}

TEST_F(LayerDragging, ADragFromAnEmptyRowDoesNotStart) {
    StartWithTwoWindows();
    QTest::mousePress(List(1)->viewport(), Qt::LeftButton, {}, QPoint(60, 7 * rowHeight + 2));
    MoveMouse(List(1), QPoint(120, 7 * rowHeight + 2));
    EXPECT_EQ(TheProject().drag.source, 0);
}

TEST_F(LayerDragging, AMoveWithoutRoomLosesNoLayer) {
    StartWithTwoWindows();
    Fill(2, "ABCDEFGHIJKLMNO");
    DragLine(List(1), 1, List(2), 0);
    EXPECT_EQ(Layers(1), "ABCD");
    EXPECT_EQ(Layers(2), "ABCDEFGHIJKLMNO");
    EXPECT_EQ(TheProject().clipboard[1].name, "B");
}

TEST_F(LayerDragging, LabelsBesideTheListTakeDropsForItsEnds) {
    StartWithTwoWindows();
    Fill(2, "ABCDEFGHIJK");
    StartDrag(List(1), 0);
    EXPECT_TRUE(Drop(MakeDragPayload(DragKind::layers), Find(2, "Draglabel_4"), {5, 5}));
    EXPECT_EQ(Layers(2), "ABCDEFGHIJKA");
    StartDrag(List(1), 0);
    EXPECT_TRUE(Drop(MakeDragPayload(DragKind::layers), Find(2, "Draglabel_3"), {5, 5}));
    EXPECT_EQ(Layers(2), "BABCDEFGHIJKA");
    EXPECT_EQ(Current(2), 1);
}

TEST_F(LayerDragging, HoveringOverTheLabelsShowsTheEndsOfTheList) {
    StartWithTwoWindows();
    Fill(2, "ABCDEFGHIJKLMNO");
    const auto hover = [&](const char* label) {
        const std::unique_ptr<QMimeData> data(MakeDragPayload(DragKind::layers));
        QDragEnterEvent enter({5, 5}, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(Find(2, label), &enter);
    };
    const auto* list = qobject_cast<LayerList*>(List(2));
    hover("Draglabel_4");
    EXPECT_EQ(list->TopLine(), 6);
    hover("Draglabel_3");
    EXPECT_EQ(list->TopLine(), 0);
}

TEST_F(LayerDragging, ALineShowsWhereADropWouldInsert) {
    StartWithTwoWindows();
    QWidget* area = List(2)->viewport();
    const auto isMarked = [&](int row) {
        const QColor colour = area->grab().toImage().pixelColor(200, row * rowHeight);
        return colour == area->palette().color(QPalette::Highlight);
    };
    const std::unique_ptr<QMimeData> data(MakeDragPayload(DragKind::layers));
    QDragEnterEvent enter({60, 5}, Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(area, &enter);
    QDragMoveEvent move({60, 8 * rowHeight}, Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(area, &move);
    EXPECT_TRUE(isMarked(2)) << "behind the last line";
    QDragMoveEvent up({60, rowHeight + 2}, Qt::MoveAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(area, &up);
    EXPECT_TRUE(isMarked(1));
    EXPECT_FALSE(isMarked(2));
    QDragLeaveEvent leave;
    QApplication::sendEvent(area, &leave);
    EXPECT_FALSE(isMarked(1));
}

TEST_F(LayerDragging, DropsInAScrolledListCountFromItsFirstVisibleLine) {
    StartWithTwoWindows();
    Fill(2, "ABCDEFGHIJKLM");
    List(2)->scrollToBottom();
    DragLine(List(1), 0, List(2), 1);
    EXPECT_EQ(Layers(2), "ABCDEAFGHIJKLM");
}

TEST_F(LayerDragging, MaterialsGoWhereTheyAreDropped) {
    StartWithTwoWindows();
    SelectMaterial("PLASTER");
    DragLine(Materials(), Materials()->currentRow(), List(2), 1);
    EXPECT_EQ(Layers(2), "XPLASTERY");
    EXPECT_EQ(TheProject().currentConstruction, 2);
    SelectMaterial("PLASTER");
    DragLine(Materials(), Materials()->currentRow(), List(1), 8);
    EXPECT_EQ(Layers(1), "ABCDPLASTER");
    EXPECT_EQ(Current(1), 5);
    EXPECT_EQ(Layers(2), "XPLASTERY");
}

TEST_F(LayerDragging, OtherProgramsDataAreRefused) {
    StartWithTwoWindows();
    auto* text = new QMimeData;
    text->setText(QStringLiteral("PLASTER"));
    EXPECT_FALSE(Drop(text, List(1)->viewport(), {60, 5}));
    auto* anotherCopy = new QMimeData;
    const std::unique_ptr<QMimeData> own(MakeDragPayload(DragKind::layers));
    anotherCopy->setData(own->formats().front(), "another copy of the program");
    EXPECT_FALSE(Drop(anotherCopy, List(1)->viewport(), {60, 5}));
    EXPECT_FALSE(Drop(MakeDragPayload(DragKind::layers), Materials()->viewport(), {60, 5}));
    EXPECT_FALSE(Drop(MakeDragPayload(DragKind::layers), Find(1, "NameText"), {5, 5}));
    EXPECT_EQ(Layers(1), "ABCD");
}

TEST_F(LayerDragging, ThePictureIsThatOfTheRowAndShowsEveryDraggedLine) {
    StartWithTwoWindows();
    ClickLine(List(1), 0);
    ClickLine(List(1), 1, Qt::ShiftModifier);
    StartDrag(List(1), 1);
    const int line = QFontMetrics(List(1)->font()).lineSpacing();
    EXPECT_GE(Picture(1).height(), 2 * line);
    EXPECT_LT(Picture(1).height(), 3 * line);
    EXPECT_GE(Picture(1).width(),
              QFontMetrics(List(1)->font()).horizontalAdvance(List(1)->item(0)->text()));
    EXPECT_TRUE(Picture(0).isNull());
    Fill(1, "ABCDEFGHIJKLMNO");
    List(1)->scrollToBottom();
    StartDrag(List(1), 14);
    EXPECT_LT(Picture(8).height(), 2 * line);
    EXPECT_FALSE(Picture(8).isNull());
}

TEST_F(LayerDragging, NamesInThePictureAreNoMarkup) {
    StartWithTwoWindows();
    TheProject().constructions[1].layers.Edit(1).name = "A<br>B<br>C";
    program->ShowProject();
    StartDrag(List(1), 0);
    EXPECT_LT(Picture(0).height(), 2 * QFontMetrics(List(1)->font()).lineSpacing());
}

TEST_F(LayerDragging, TheLabelsOfTheRowsKeepTheirCaptions) {
    StartWithTwoWindows();
    StartDrag(List(1), 1);
    for (int row = 0; row < 9; ++row)
        EXPECT_EQ(Image(row)->text(), QStringLiteral("  Conductivity                    W/m/°C"));
}

TEST_F(LayerDragging, TheListScrollsAtItsEdges) {
    StartWithTwoWindows();
    EXPECT_TRUE(List(2)->hasAutoScroll());
}

TEST_F(LayerDragging, ControlPressedAfterTheStartMovesAllTheSame) {
    StartWithTwoWindows();
    StartDrag(List(1), 1);
    MoveMouse(List(1), QPoint(60, 5), Qt::ControlModifier);
    EXPECT_TRUE(Drop(MakeDragPayload(DragKind::layers), List(2)->viewport(), {60, 5}));
    EXPECT_EQ(Layers(1), "ACD");
    EXPECT_EQ(Layers(2), "BXY");
}

TEST_F(LayerDragging, FirstAndLastShowThatTheyTakeADrop) {
    StartWithTwoWindows();
    for (const char* name : {"Draglabel_3", "Draglabel_4"}) {
        auto* label = Find<QLabel>(1, name);
        EXPECT_GE(label->height(), 20) << "room to drop on";
        const QColor before = label->grab().toImage().pixelColor(4, 4);
        const std::unique_ptr<QMimeData> data(MakeDragPayload(DragKind::layers));
        QDragEnterEvent enter({4, 4}, Qt::MoveAction, data.get(), Qt::LeftButton, {});
        QApplication::sendEvent(label, &enter);
        EXPECT_EQ(label->grab().toImage().pixelColor(4, 4),
                  label->palette().color(QPalette::Highlight));
        QDragLeaveEvent leave;
        QApplication::sendEvent(label, &leave);
        EXPECT_EQ(label->grab().toImage().pixelColor(4, 4), before);
        const std::unique_ptr<QMimeData> text(new QMimeData);
        text->setText(QStringLiteral("PLASTER"));
        QDragEnterEvent foreign({4, 4}, Qt::CopyAction, text.get(), Qt::LeftButton, {});
        QApplication::sendEvent(label, &foreign);
        EXPECT_EQ(label->grab().toImage().pixelColor(4, 4), before) << "not of another program";
    }
}

} // namespace
} // namespace strativo
