#include "GlassEditor.h"

namespace strativo {
namespace {

struct TypedRow {
    const char* test;
    const char* text;
    const char* shown;
    float stored;
};

class TypedValues : public GlassEditor, public testing::WithParamInterface<TypedRow> {};

TEST_P(TypedValues, AreStoredWithinTheirLimitsOnLeaving) {
    OpenToType(4);
    Type(GetParam().text);
    EXPECT_EQ(Level(), GetParam().shown) << "nothing is rewritten while it is typed";
    graph->setFocus();
    EXPECT_FLOAT_EQ(Accepted()[4], GetParam().stored);
}

constexpr TypedRow typed[] = {
    {"AFraction", "0.333", "0.333", 0.333F},    {"AboveOne", "1.5", "1.5", 1},
    {"BelowZero", "-0.2", "-0.2", 0},           {"NoNumber", "clear", "clear", 0},
    {"NumberBeforeText", "0.7x", "0.7x", 0.7F}, {"Zero", "0", "0", 0},
    {"ADecimalComma", "0,25", "0.25", 0.25F},   {"BeyondAnyNumber", "1e99", "1e99", 1},
};

INSTANTIATE_TEST_SUITE_P(Texts, TypedValues, testing::ValuesIn(typed),
                         [](const auto& row) { return row.param.test; });

TEST_F(GlassEditor, TakesATypedValueAtEveryKey) {
    OpenToType(4);
    Type("0.9");
    EXPECT_TRUE(project.changed);
    EXPECT_FLOAT_EQ(Accepted()[4], 0.9F);
}

TEST_F(GlassEditor, DrawingItselfLeavesHalfTypedTextAlone) {
    OpenToType(4);
    Type("0");
    editor->grab();
    EXPECT_EQ(Level(), "0");
    Type(".7");
    EXPECT_FLOAT_EQ(Accepted()[4], 0.7F);
}

TEST_F(GlassEditor, RewritesTheTypedTextOnLeaving) {
    OpenToType(4);
    Type("1.5");
    graph->setFocus();
    EXPECT_EQ(Level(), "1.000");
}

TEST_F(GlassEditor, TakesAPastedValueWithACommaOnLeaving) {
    OpenToType(4);
    level->insert(QStringLiteral("0,125"));
    graph->setFocus();
    EXPECT_FLOAT_EQ(Accepted()[4], 0.125F);
}

TEST_F(GlassEditor, EnterGoesOnToTheNextColumn) {
    OpenToType(4);
    Type("0.9");
    Key(Qt::Key_Return);
    EXPECT_EQ(Column(), 5);
    EXPECT_EQ(Level(), "0.500");
    EXPECT_EQ(level->selectedText(), QStringLiteral("0.500")) << "to be typed over";
    Type("0.8");
    Key(Qt::Key_Enter);
    EXPECT_EQ(Column(), 6);
    const AngularValues& values = Accepted();
    EXPECT_FLOAT_EQ(values[4], 0.9F);
    EXPECT_FLOAT_EQ(values[5], 0.8F);
}

TEST_F(GlassEditor, TheNextValueMayBeBegunBeforeEnterHasComeUp) {
    OpenToType(4);
    Type("0.8");
    QTest::keyPress(level, Qt::Key_Return);
    QTest::keyPress(level, '.');
    QTest::keyRelease(level, Qt::Key_Return);
    QTest::keyRelease(level, '.');
    Type("75");
    EXPECT_EQ(Column(), 5);
    EXPECT_EQ(Level(), ".75");
    const AngularValues& values = Accepted();
    EXPECT_FLOAT_EQ(values[4], 0.8F);
    EXPECT_FLOAT_EQ(values[5], 0.75F);
}

TEST_F(GlassEditor, EnterStaysOnTheLastColumn) {
    OpenToType(11);
    Type("0.9");
    Key(Qt::Key_Return);
    EXPECT_EQ(Column(), 11);
    EXPECT_EQ(Level(), "0.900");
}

TEST_F(GlassEditor, EnterWithoutTypingKeepsTheUnroundedValue) {
    Stored().transmission[4] = 0.12345F;
    OpenToType(4);
    EXPECT_EQ(Level(), "0.123");
    Key(Qt::Key_Return);
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(Accepted()[4], 0.12345F);
}

TEST_F(GlassEditor, WalkingThroughTheColumnsChangesNothing) {
    for (float& value : Stored().transmission)
        value = 0.12345F;
    OpenToType(1);
    for (int times = 0; times < 11; ++times)
        Key(Qt::Key_Right);
    graph->setFocus();
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(Accepted()[11], 0.12345F);
}

TEST_F(GlassEditor, EnterActsOnceWhileItIsHeld) {
    OpenToType(4);
    QTest::keyPress(level, Qt::Key_Return);
    for (int times = 0; times < 5; ++times) {
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, {}, QString(), true);
        QApplication::sendEvent(level, &release);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, {}, QString(), true);
        QApplication::sendEvent(level, &press);
    }
    EXPECT_EQ(Column(), 4);
    QTest::keyRelease(level, Qt::Key_Return);
    EXPECT_EQ(Column(), 5);
}

TEST_F(GlassEditor, AnEnterReleaseWhosePressWentElsewhereDoesNothing) {
    OpenToType(4);
    QTest::keyRelease(level, Qt::Key_Return);
    EXPECT_EQ(Column(), 4);
    QTest::keyPress(level, Qt::Key_Return);
    graph->setFocus();
    level->setFocus();
    QTest::keyRelease(level, Qt::Key_Return);
    EXPECT_EQ(Column(), 4);
}

TEST_F(GlassEditor, ACursorKeyTakesTheTypedValueFirst) {
    OpenToType(4);
    QTest::keyPress(level, Qt::Key_A, Qt::ControlModifier);
    Type("0.");
    QTest::keyPress(level, '7');
    Key(Qt::Key_Right);
    EXPECT_EQ(Column(), 5);
    EXPECT_EQ(Level(), "0.500");
    EXPECT_FLOAT_EQ(Accepted()[4], 0.7F);
}

TEST_F(GlassEditor, ANudgeWhileTypingShowsTheValueAnew) {
    OpenToType(4);
    Type("0.7");
    Key(Qt::Key_Up);
    EXPECT_EQ(Level(), "0.710");
}

TEST_F(GlassEditor, TheOtherPropertyIsNotGivenTheTypedValue) {
    OpenToType(4);
    Type("0.7");
    Key(Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Option("GlassProp_1")->isChecked(); }));
    EXPECT_EQ(Level(), "0.250");
    Button("OkBut")->click();
    EXPECT_FLOAT_EQ(Stored().transmission[4], 0.7F);
    EXPECT_FLOAT_EQ(Stored().absorption[4], 0.25F);
}

} // namespace
} // namespace strativo
