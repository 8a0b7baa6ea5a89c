#include "GlassEditor.h"

#include <QClipboard>

namespace strativo {
namespace {

class GraphKeys : public GlassEditor {
protected:
    void OpenOnGraph(int selectedColumn) {
        Open(selectedColumn);
        graph->setFocus();
    }
    void Clipboard(const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
    }
    static std::string Clipboard() { return Bytes(QApplication::clipboard()->text()); }

    /// The colour of the paper at a value of a column, between the lines of the grid.
    QColor PaperAt(int column, double value) {
        const QPointF place = graph->PointOf(column, value) + QPointF(6, 0);
        return editor->grab().toImage().pixelColor(graph->mapTo(editor.get(), place.toPoint())
                                                   * editor->devicePixelRatio());
    }
};

TEST_F(GraphKeys, ADigitBeginsAValue) {
    OpenOnGraph(4);
    Type("0.75");
    EXPECT_EQ(FocusName(), "EditLevel");
    EXPECT_EQ(Level(), "0.75");
    Key(Qt::Key_Return);
    EXPECT_EQ(Column(), 5);
    EXPECT_FLOAT_EQ(Accepted()[4], 0.75F);
}

TEST_F(GraphKeys, APointBeginsAValueToo) {
    OpenOnGraph(4);
    Type(".5");
    EXPECT_EQ(Level(), ".5");
}

TEST_F(GraphKeys, ADigitWithoutAPointIsForTheFirstOne) {
    OpenOnGraph(0);
    Type("0.9");
    EXPECT_EQ(Column(), 1);
    EXPECT_FLOAT_EQ(Accepted()[1], 0.9F);
}

TEST_F(GraphKeys, TheValueFieldHasAKeyOfItsOwn) {
    OpenOnGraph(4);
    Key(Qt::Key_V, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "EditLevel");
    EXPECT_EQ(level->selectedText(), QStringLiteral("0.500"));
    EXPECT_FALSE(project.changed);
}

TEST_F(GraphKeys, ControlVFillsTheShownPropertyFromASpreadsheet) {
    OpenOnGraph(4);
    Clipboard("0,05\t0,8\t0,79\t0,78\t0,77\t0,75\t0,71\t0,64\t0,5\t0,28\t0\r\n");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Level(), "0.780");
    Option("GlassProp_1")->click();
    graph->setFocus();
    Clipboard("0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.1\n0.2\n");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(project.changed);
    EXPECT_FLOAT_EQ(Accepted()[10], 0.28F);
    EXPECT_FLOAT_EQ(Stored().absorption[11], 0.2F);
}

TEST_F(GraphKeys, ControlVRefusesAnythingElseAndSaysSo) {
    OpenOnGraph(4);
    Clipboard("0.5\t0.5");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(
        prompts.Texts(),
        testing::ElementsAre("Eleven numbers are needed, but the clipboard holds 2 cells."));
    EXPECT_FALSE(project.changed);
}

TEST_F(GraphKeys, ControlCCopiesTheShownProperty) {
    OpenOnGraph(4);
    Stored().transmission[1] = 0.05F;
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "0.5\t0.5\t0.5\t0.5\t0.5\t0.5\t0.5\t0.5\t0.5\t0.5\t0.5");
    Option("GlassProp_1")->click();
    graph->setFocus();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard().substr(0, 9), "0.25\t0.25");
}

TEST_F(GraphKeys, TheFieldsKeepTheirOwnCopyAndPaste) {
    OpenToType(4);
    Clipboard("0.125");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Level(), "0.125");
    level->selectAll();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), "0.125");
    nameField->setFocus();
    nameField->selectAll();
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Bytes(nameField->text()), "0.125");
    EXPECT_TRUE(prompts.Texts().empty());
}

TEST_F(GraphKeys, TheBandThatTheOtherPropertyForbidsIsShaded) {
    Open();
    const QColor free = PaperAt(6, 0.65);
    const QColor shaded = PaperAt(6, 0.85); // the absorption of 0.25 leaves 0.75
    EXPECT_EQ(free, QColor(Qt::white));
    EXPECT_NE(shaded, free);
    Option("GlassProp_1")->click();
    EXPECT_EQ(PaperAt(6, 0.65), shaded) << "the transmission of 0.5 leaves 0.5";
    EXPECT_EQ(PaperAt(6, 0.45), free);
}

TEST_F(GraphKeys, AValueOutsideItsRangeIsDrawnAtTheEdgeAndTold) {
    Stored().transmission[6] = 1.25F;
    Stored().transmission[7] = -0.5F;
    Open();
    EXPECT_DOUBLE_EQ(graph->PointOf(6, 1.25).y(), 0);
    EXPECT_DOUBLE_EQ(graph->PointOf(7, -0.5).y(), graph->height());
    EXPECT_EQ(Bytes(graph->accessibleDescription()),
              "Outside 0 to 1, drawn at the edge: 1.25 at 40 degrees, -0.5 at 50 degrees");
    QTest::mouseClick(graph, Qt::LeftButton, {}, graph->PointOf(6, 1).toPoint());
    EXPECT_EQ(Column(), 6) << "the marker is hit where it is drawn";
    EXPECT_FLOAT_EQ(Accepted()[6], 1.25F) << "and keeps its value until it is moved";
}

} // namespace
} // namespace strativo
