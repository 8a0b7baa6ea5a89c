#include "GlassEditor.h"
#include "ui/Twips.h"

#include <QMouseEvent>

namespace strativo {
namespace {

class GlassGraph : public GlassEditor {
protected:
    void Send(QEvent::Type type, QPointF place, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, place, graph->mapToGlobal(place), button, held, Qt::NoModifier);
        QApplication::sendEvent(graph, &event);
    }
    void Press(QPointF place, Qt::MouseButton button = Qt::LeftButton) {
        Send(QEvent::MouseButtonPress, place, button, button);
    }
    void Move(QPointF place, Qt::MouseButton held = Qt::LeftButton) {
        Send(QEvent::MouseMove, place, Qt::NoButton, held);
    }
    void Release(QPointF place) {
        Send(QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
    }

    /// Converts a place on the graph to one on the sheet around it, and presses there.
    QPoint OnSheet(QPoint place) const { return graph->mapToParent(place); }
    void PressOnSheet(QPoint place) {
        QWidget* target = graph->rect().contains(place) ? graph : graph->parentWidget();
        QTest::mouseClick(target, Qt::LeftButton, {}, target == graph ? place : OnSheet(place));
    }

    /// A point at that distance from the left and top edges, as fractions of width and height.
    QPointF Place(double x, double y) const { return {x * graph->width(), y * graph->height()}; }
    /// The point of a column with the value 0.5.
    QPointF Point(int column) const { return Place(0.08 * column, 0.5); }
    double Marker() const { return FromTwips(markerRadius * 100, *graph) / 100.0; }
};

TEST_F(GlassGraph, MeasuresItsWholeAreaInTwips) {
    Open();
    const GraphGeometry geometry = graph->Geometry();
    EXPECT_DOUBLE_EQ(geometry.width, ToTwips(graph->width(), *graph));
    EXPECT_DOUBLE_EQ(geometry.height, ToTwips(graph->height(), *graph));
    EXPECT_DOUBLE_EQ(graph->PointOf(10, 0.25).x(), 0.8 * graph->width());
    EXPECT_DOUBLE_EQ(graph->PointOf(10, 0.25).y(), 0.75 * graph->height());
    EXPECT_DOUBLE_EQ(graph->PointOf(1, 1).y(), 0);
    EXPECT_DOUBLE_EQ(graph->PointOf(1, 0).y(), graph->height());
}

TEST_F(GlassGraph, APressOnAMarkerSelectsItsColumn) {
    Open();
    for (int column = 1; column <= profileColumns; ++column) {
        Press(Point(column));
        EXPECT_EQ(Column(), column);
        Release(Point(column));
    }
    EXPECT_EQ(ColumnLabel(), "Transmission at 90 degrees");
    EXPECT_EQ(Level(), "0.500");
    EXPECT_FALSE(project.changed) << "a press alone moves nothing";
}

TEST_F(GlassGraph, APressUpToTheMarkersRadiusAboveOrBelowCounts) {
    Open(1);
    Press(Point(4) + QPointF(0, Marker() - 0.1));
    EXPECT_EQ(Column(), 4);
    Press(Point(5) - QPointF(0, Marker() - 0.1));
    EXPECT_EQ(Column(), 5);
    Press(Point(5) - QPointF(0, Marker() + 0.1));
    EXPECT_EQ(Column(), 0);
}

TEST_F(GlassGraph, APointOfValueZeroIsTakenHoldOfOnItsWholeMarker) {
    for (float& value : Stored().transmission)
        value = 0;
    Open(1);
    const QPoint point = graph->PointOf(4, 0).toPoint();
    for (int y = -3; y <= 3; ++y) {
        project.selectedProfileColumn = 0;
        PressOnSheet(point + QPoint(0, y));
        EXPECT_EQ(Column(), 4) << y;
    }
    for (const int y : {-4, 4}) {
        project.selectedProfileColumn = 1;
        PressOnSheet(point + QPoint(0, y));
        EXPECT_NE(Column(), 4) << y;
    }
}

TEST_F(GlassGraph, ALowerHalfOfAMarkerDragsItsPoint) {
    for (float& value : Stored().transmission)
        value = 0;
    Open();
    const QPoint from = OnSheet(graph->PointOf(4, 0).toPoint() + QPoint(0, 2));
    QTest::mousePress(graph->parentWidget(), Qt::LeftButton, {}, from);
    EXPECT_TRUE(graph->hasFocus());
    const QPointF to = from - QPointF(0, graph->height() / 4.0);
    QMouseEvent move(QEvent::MouseMove, to, graph->parentWidget()->mapToGlobal(to), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(graph->parentWidget(), &move);
    QTest::mouseRelease(graph->parentWidget(), Qt::LeftButton, {}, to.toPoint());
    EXPECT_EQ(Level(), "0.250");
}

TEST_F(GlassGraph, APressOnTheFiguresOfTheAxesLeavesTheSelection) {
    Open(4);
    PressOnSheet(graph->PointOf(7, 0).toPoint() + QPoint(0, 15));
    EXPECT_EQ(Column(), 4);
}

TEST_F(GlassGraph, ThePressNeedsOnlyTheNearestColumnSideways) {
    Open();
    Press(Point(4) + QPointF(0.039 * graph->width(), 0));
    EXPECT_EQ(Column(), 4);
    Press(Point(4) + QPointF(0.041 * graph->width(), 0));
    EXPECT_EQ(Column(), 5);
}

TEST_F(GlassGraph, APressLessThanHalfAStepFromTheLeftEdgeSelectsNothing) {
    Open(4);
    Press(Place(0.039, 0.5));
    EXPECT_EQ(Column(), 0);
    EXPECT_FALSE(level->isVisible());
    EXPECT_EQ(ColumnLabel(), "");
}

TEST_F(GlassGraph, APressBeyondTheLastColumnSelectsNothing) {
    Open(4);
    Press(Place(0.93, 0.5));
    EXPECT_EQ(Column(), 0);
    Move(Place(0.93, 0.2));
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassGraph, DraggingMovesTheValueAndShowsIt) {
    Open();
    Press(Point(4));
    Move(Place(0.32, 0.25));
    EXPECT_EQ(Level(), "0.750");
    EXPECT_TRUE(project.changed);
    EXPECT_FLOAT_EQ(Accepted()[4], 0.75F);
}

TEST_F(GlassGraph, ThePointKeepsItsDistanceFromThePointerWhileDragged) {
    Open();
    Press(Point(4) + QPointF(0, 3));
    Move(Point(4) + QPointF(0, 3));
    EXPECT_EQ(Level(), "0.500");
}

TEST_F(GlassGraph, DraggedValuesStayWithinTheirLimits) {
    Open();
    Press(Point(4));
    Move(Place(0.32, -0.3));
    EXPECT_EQ(Level(), "1.000");
    Move(Place(0.32, 1.3));
    EXPECT_EQ(Level(), "0.000");
}

TEST_F(GlassGraph, MovingSidewaysStaysWithTheColumn) {
    Open();
    Press(Point(4));
    Move(Place(0.8, 0.25));
    EXPECT_EQ(Column(), 4);
    EXPECT_EQ(Level(), "0.750");
}

TEST_F(GlassGraph, AfterTheReleaseMovesDoNothing) {
    Open();
    Press(Point(4));
    Release(Point(4));
    Move(Place(0.32, 0.25), Qt::NoButton);
    Move(Place(0.32, 0.25));
    EXPECT_EQ(Level(), "0.500");
}

TEST_F(GlassGraph, OtherButtonsDoNothing) {
    Open(7);
    Press(Point(4), Qt::RightButton);
    Move(Place(0.32, 0.25), Qt::RightButton);
    Press(Point(4), Qt::MiddleButton);
    EXPECT_EQ(Column(), 7);
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassGraph, DragsTheShownProperty) {
    Open();
    Option("GlassProp_1")->click();
    Press(Place(0.32, 0.75));
    Move(Place(0.32, 0.5));
    Button("OkBut")->click();
    EXPECT_FLOAT_EQ(Stored().absorption[4], 0.5F);
    EXPECT_EQ(Stored().transmission[4], 0.5F);
}

TEST_F(GlassGraph, AKeyDuringADragEndsIt) {
    Open();
    Press(Point(4));
    Key(Qt::Key_Right);
    Move(Place(0.32, 0.25));
    EXPECT_EQ(Column(), 5);
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassGraph, APressTakesTheTypedValueForItsOwnColumn) {
    OpenToType(4);
    Type("0.");
    QTest::keyPress(level, '9');
    QTest::mousePress(graph, Qt::LeftButton, {}, Point(6).toPoint());
    EXPECT_EQ(Column(), 6);
    const AngularValues& values = Accepted();
    EXPECT_FLOAT_EQ(values[4], 0.9F);
    EXPECT_FLOAT_EQ(values[6], 0.5F);
}

TEST_F(GlassGraph, APressThatHidesTheValueLeavesTheFocusInTheGraph) {
    OpenToType(4);
    QTest::mousePress(graph, Qt::LeftButton, {}, Place(0.02, 0.5).toPoint());
    EXPECT_FALSE(level->isVisible());
    EXPECT_EQ(FocusName(), "Graph");
}

class DrawnGraph : public GlassGraph {
protected:
    /// The picture of the graph, in device pixels.
    QImage Picture() { return graph->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    QColor At(QPointF place) {
        const QImage picture = Picture();
        const double scale = picture.devicePixelRatio();
        return picture.pixelColor((place * scale).toPoint());
    }
};

TEST_F(DrawnGraph, JoinsTheAnglesInBlueButNotTheDiffuseValue) {
    Open();
    const QPointF half(0.04 * graph->width(), 0);
    EXPECT_EQ(At(Point(4) + half), QColor(0, 0, 128));
    EXPECT_EQ(At(Point(10) + half), QColor(0, 0, 128));
    EXPECT_NE(At(Point(1) + half), QColor(0, 0, 128));
    EXPECT_NE(At(Point(11) + half), QColor(0, 0, 128));
}

TEST_F(DrawnGraph, FillsTheMarkerOfTheSelectedColumnOnly) {
    Stored().transmission[1] = 0.75F;
    Open(1);
    const QPointF diffuse = Place(0.08, 0.25) + QPointF(1, 1);
    EXPECT_EQ(At(diffuse), QColor(Qt::black));
    Key(Qt::Key_Right);
    EXPECT_NE(At(diffuse), QColor(Qt::black));
    EXPECT_EQ(At(Point(2) + QPointF(1, -1)), QColor(Qt::black));
}

TEST_F(DrawnGraph, FollowsTypingAtOnce) {
    OpenToType(1);
    const QPointF target = Place(0.08, 0.25) + QPointF(1, 1);
    EXPECT_NE(At(target), QColor(Qt::black));
    Type("0.75");
    EXPECT_EQ(At(target), QColor(Qt::black));
}

} // namespace
} // namespace strativo
