#include "GlassEditor.h"

namespace strativo {
namespace {

/// Undo and redo within the glass editor.
class GlassEditorUndo : public GlassEditor {
protected:
    void Back() { Key(Qt::Key_Z, Qt::ControlModifier); }
    void Again() { Key(Qt::Key_Y, Qt::ControlModifier); }
};

TEST_F(GlassEditorUndo, TakesBackOneValueAfterTheOther) {
    Open(3);
    Key(Qt::Key_Up);
    Key(Qt::Key_Up);
    Key(Qt::Key_Right);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Level(), "0.600");
    Back();
    EXPECT_EQ(Level(), "0.500");
    EXPECT_EQ(Column(), 4);
    EXPECT_TRUE(project.changed);
    Back();
    EXPECT_EQ(Column(), 3);
    EXPECT_EQ(Level(), "0.510");
    Back();
    EXPECT_EQ(Level(), "0.500");
    EXPECT_FALSE(project.changed);
    Back();
    EXPECT_EQ(Level(), "0.500");
    Again();
    EXPECT_EQ(Level(), "0.510");
    EXPECT_TRUE(project.changed);
    EXPECT_FLOAT_EQ(Accepted()[3], 0.51F);
}

TEST_F(GlassEditorUndo, TakesATypedNumberBackAsOneStep) {
    Open(3);
    Key(Qt::Key_0);
    Key(Qt::Key_Period);
    Key(Qt::Key_7);
    Key(Qt::Key_Return);
    graph->setFocus();
    Back();
    EXPECT_EQ(Column(), 3);
    EXPECT_EQ(Level(), "0.500");
    EXPECT_FLOAT_EQ(Accepted()[3], 0.5F);
}

TEST_F(GlassEditorUndo, ShowsThePropertyWhoseValueCameBack) {
    Open(3);
    Option("GlassProp_1")->setChecked(true);
    graph->setFocus();
    Key(Qt::Key_Up);
    Option("GlassProp_0")->setChecked(true);
    Back();
    EXPECT_TRUE(Option("GlassProp_1")->isChecked());
    EXPECT_EQ(Level(), "0.250");
}

TEST_F(GlassEditorUndo, BelongsToAFieldThatHasTheFocus) {
    Open(3);
    Key(Qt::Key_Up);
    nameField->setFocus();
    nameField->selectAll();
    QTest::keyClicks(nameField, QStringLiteral("GREEN"));
    Back();
    EXPECT_NE(nameField->text(), QStringLiteral("GREEN"));
    EXPECT_EQ(Level(), "0.510");
}

} // namespace
} // namespace strativo
