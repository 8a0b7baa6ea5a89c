#include "GlassEditor.h"

#include <QAccessible>

namespace strativo {
namespace {

using testing::ElementsAre;

TEST_F(GlassEditor, HasALowerGraphWhereTheScreenIsTooLowForIt) {
    Open();
    EXPECT_EQ(graph->height(), 300) << "where there is room";
    const int screen = editor->screen()->availableGeometry().height();
    const int others = editor->height() - graph->height();
    // Higher controls stand for a lower screen.
    qApp->setStyleSheet(
        QStringLiteral("QLabel { min-height: %1px }").arg((screen - others) / 2 - 70));
    Open();
    qApp->setStyleSheet(QString());
    EXPECT_LE(editor->height(), screen - 40);
    EXPECT_LT(graph->height(), 300);
    EXPECT_GE(graph->height(), 100);
    const QRect place(Button("OkBut")->mapTo(editor.get(), QPoint()), Button("OkBut")->size());
    EXPECT_TRUE(editor->rect().contains(place));
}

TEST_F(GlassEditor, HasItsCaptions) {
    Open();
    EXPECT_EQ(Bytes(editor->windowTitle()), "Glass Properties");
    EXPECT_EQ(Bytes(Option("GlassProp_0")->text()), "&Transmission");
    EXPECT_EQ(Bytes(Option("GlassProp_1")->text()), "&Absorption");
    EXPECT_EQ(Bytes(Find<QLabel>(*editor, "Label1")->text()), "&Property");
    EXPECT_EQ(Bytes(Find<QLabel>(*editor, "GlassName")->text()), "Glass type &name");
    EXPECT_EQ(Bytes(Button("OkBut")->text()), "OK");
    EXPECT_EQ(Bytes(Button("CancelBut")->text()), "Cancel");
}

TEST_F(GlassEditor, NamesAndExplainsEveryControl) {
    Open(5);
    EXPECT_EQ(Find<QLabel>(*editor, "GlassName")->buddy(), nameField);
    EXPECT_EQ(Bytes(level->accessibleName()), "Transmission at 30 degrees");
    EXPECT_FALSE(graph->accessibleName().isEmpty());
    EXPECT_FALSE(nameField->accessibleName().isEmpty());
    for (const char* control :
         {"Graph", "GlassText", "GlassProp_0", "GlassProp_1", "EditLevel", "OkBut", "CancelBut"})
        EXPECT_FALSE(Find(*editor, control)->toolTip().isEmpty()) << control;
}

TEST_F(GlassEditor, TellsScreenReadersColumnAndValueOfTheSelectedPoint) {
    Open(5);
    EXPECT_EQ(Bytes(graph->accessibleName()),
              "Profile graph: Transmission at 30 degrees, " + Bytes(level->text()));
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(graph);
    ASSERT_NE(access, nullptr);
    QAccessibleValueInterface* value = access->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_FLOAT_EQ(value->currentValue().toFloat(), level->text().toFloat());
    EXPECT_EQ(value->minimumValue().toDouble(), 0);
    EXPECT_EQ(value->maximumValue().toDouble(), 1);
    value->setCurrentValue(0.25);
    EXPECT_EQ(Bytes(level->text()), "0.250");
    EXPECT_EQ(Bytes(graph->accessibleName()), "Profile graph: Transmission at 30 degrees, 0.250");
    EXPECT_FLOAT_EQ(value->currentValue().toFloat(), 0.25F);
}

TEST_F(GlassEditor, IsWalkedThroughByTabInReadingOrder) {
    Open(1);
    nameField->setFocus();
    std::vector<std::string> order;
    for (int steps = 0; steps < 6; ++steps) {
        order.push_back(FocusName());
        Key(Qt::Key_Tab);
    }
    EXPECT_THAT(
        order, ElementsAre("GlassText", "Graph", "GlassProp_0", "EditLevel", "OkBut", "CancelBut"));
}

TEST_F(GlassEditor, HasAFixedSize) {
    Open();
    EXPECT_EQ(editor->minimumSize(), editor->maximumSize());
    EXPECT_EQ(editor->size(), editor->sizeHint());
}

TEST_F(GlassEditor, RecordsItsSourceWhenItIsLoaded) {
    EXPECT_EQ(project.windowSources[4], "");
    Open();
    EXPECT_EQ(project.windowSources[4].substr(0, 10), "WINPRO.cpp");
}

TEST_F(GlassEditor, OpensOnTheCurrentTypeWithItsTransmission) {
    project.selectedProfileColumn = 3;
    Stored().transmission[3] = 0.8125F;
    Open(3);
    EXPECT_EQ(Bytes(nameField->text()), "CLEAR");
    EXPECT_TRUE(Option("GlassProp_0")->isChecked());
    EXPECT_EQ(Level(), "0.813") << "half away from zero";
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassEditor, HasTheFocusInTheGraphWhenATypeIsEdited) {
    Open();
    EXPECT_EQ(FocusName(), "Graph");
}

TEST_F(GlassEditor, HasTheFocusInTheNameWhenATypeIsAdded) {
    AddGlassType(project, "");
    Open();
    EXPECT_EQ(FocusName(), "GlassText");
    Type("NEW");
    EXPECT_EQ(Bytes(nameField->text()), "NEW");
}

TEST_F(GlassEditor, HidesTheValueWhileNoColumnIsSelected) {
    Open(0);
    EXPECT_FALSE(level->isVisible());
    EXPECT_EQ(ColumnLabel(), "");
}

TEST_F(GlassEditor, ComesBackWithTheColumnSelectedLast) {
    Open(1);
    Key(Qt::Key_End);
    editor->reject();
    editor = std::make_unique<Profile>(program);
    EXPECT_EQ(ColumnLabel(), "Transmission at 90 degrees");
}

struct ColumnRow {
    const char* test;
    int column;
    const char* transmission;
    const char* absorption;
};

class ColumnTexts : public GlassEditor, public testing::WithParamInterface<ColumnRow> {};

TEST_P(ColumnTexts, NameColumnAndProperty) {
    Open(GetParam().column);
    EXPECT_EQ(ColumnLabel(), GetParam().transmission);
    EXPECT_EQ(Level(), "0.500");
    Option("GlassProp_1")->click();
    EXPECT_EQ(ColumnLabel(), GetParam().absorption);
    EXPECT_EQ(Level(), "0.250");
    Option("GlassProp_0")->click();
    EXPECT_EQ(ColumnLabel(), GetParam().transmission);
}

constexpr ColumnRow columns[] = {
    {"Diffuse", 1, "Diffuse transmission", "Diffuse absorption"},
    {"FirstAngle", 2, "Transmission at 0 degrees", "Absorption at 0 degrees"},
    {"Column5", 5, "Transmission at 30 degrees", "Absorption at 30 degrees"},
    {"LastAngle", 11, "Transmission at 90 degrees", "Absorption at 90 degrees"},
};

INSTANTIATE_TEST_SUITE_P(Columns, ColumnTexts, testing::ValuesIn(columns),
                         [](const auto& row) { return row.param.test; });

struct KeyRow {
    const char* test;
    int column;
    float value;
    Qt::Key key;
    int columnAfter;
    const char* levelAfter;
    bool changed;
};

class EditorKeys : public GlassEditor, public testing::WithParamInterface<KeyRow> {};

TEST_P(EditorKeys, ActOnTheSelectedColumn) {
    const KeyRow& row = GetParam();
    if (row.column > 0)
        Stored().transmission[row.column] = row.value;
    Open(row.column);
    Key(row.key);
    EXPECT_EQ(Column(), row.columnAfter);
    EXPECT_EQ(Level(), row.levelAfter);
    EXPECT_TRUE(level->isVisible());
    EXPECT_EQ(project.changed, row.changed);
}

constexpr KeyRow keys[] = {
    {"PageUpAddsATenth", 4, 0.5F, Qt::Key_PageUp, 4, "0.600", true},
    {"PageUpStopsAtOne", 4, 0.95F, Qt::Key_PageUp, 4, "1.000", true},
    {"PageDownTakesATenth", 4, 0.5F, Qt::Key_PageDown, 4, "0.400", true},
    {"PageDownStopsAtZero", 4, 0.05F, Qt::Key_PageDown, 4, "0.000", true},
    {"UpAddsAHundredth", 4, 0.5F, Qt::Key_Up, 4, "0.510", true},
    {"UpStopsAtOne", 4, 0.995F, Qt::Key_Up, 4, "1.000", true},
    {"DownTakesAHundredth", 4, 0.5F, Qt::Key_Down, 4, "0.490", true},
    {"DownStopsAtZero", 4, 0.005F, Qt::Key_Down, 4, "0.000", true},
    {"HomeSelectsTheDiffuseValue", 4, 0.75F, Qt::Key_Home, 1, "0.500", false},
    {"EndSelectsTheLastAngle", 4, 0.75F, Qt::Key_End, 11, "0.500", false},
    {"LeftSelectsTheColumnBefore", 4, 0.75F, Qt::Key_Left, 3, "0.500", false},
    {"LeftStaysOnTheFirst", 1, 0.75F, Qt::Key_Left, 1, "0.750", false},
    {"RightSelectsTheColumnAfter", 4, 0.75F, Qt::Key_Right, 5, "0.500", false},
    {"RightStaysOnTheLast", 11, 0.75F, Qt::Key_Right, 11, "0.750", false},
    {"DownWithoutColumnOnlySelectsTheDiffuseValue", 0, 0, Qt::Key_Down, 1, "0.500", false},
    {"EndWithoutColumnOnlySelectsTheDiffuseValue", 0, 0, Qt::Key_End, 1, "0.500", false},
};

INSTANTIATE_TEST_SUITE_P(Keys, EditorKeys, testing::ValuesIn(keys),
                         [](const auto& row) { return row.param.test; });

TEST_F(GlassEditor, TakesNoKeysHeldWithShiftCtrlOrAlt) {
    Open(4);
    for (const Qt::KeyboardModifier modifier :
         {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        Key(Qt::Key_Up, modifier);
    EXPECT_EQ(Level(), "0.500");
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassEditor, TakesTheKeypadsKeysToo) {
    Open(4);
    Key(Qt::Key_Up, Qt::KeypadModifier);
    EXPECT_EQ(Level(), "0.510");
}

TEST_F(GlassEditor, TakesTheEightKeysWhereverTheFocusIs) {
    Open(4);
    for (const char* control : {"GlassText", "Graph", "GlassProp_0", "EditLevel", "OkBut"}) {
        Find(*editor, control)->setFocus();
        const int before = Column();
        Key(Qt::Key_Right);
        EXPECT_EQ(Column(), before + 1) << control;
        EXPECT_EQ(FocusName(), control);
        EXPECT_TRUE(Option("GlassProp_0")->isChecked()) << control;
    }
}

TEST_F(GlassEditor, MovesTheNamesCaretAsWell) {
    Open(4);
    nameField->setFocus();
    nameField->setCursorPosition(3);
    Key(Qt::Key_Left);
    EXPECT_EQ(nameField->cursorPosition(), 2);
    EXPECT_EQ(Column(), 3);
    Key(Qt::Key_End);
    EXPECT_EQ(nameField->cursorPosition(), 5);
    EXPECT_EQ(Column(), 11);
}

TEST_F(GlassEditor, EnterInTheNameGoesToTheGraphAndClosesNothing) {
    Open(4);
    nameField->setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "Graph");
    Key(Qt::Key_Return);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(Column(), 4);
}

TEST_F(GlassEditor, HasNoDefaultButton) {
    Open();
    for (const QPushButton* button : editor->findChildren<QPushButton*>())
        EXPECT_FALSE(button->isDefault() || button->autoDefault());
}

TEST_F(GlassEditor, EnterOnAFocusedButtonPressesIt) {
    Open(4);
    Key(Qt::Key_Up);
    Button("OkBut")->setFocus();
    Key(Qt::Key_Return);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_FLOAT_EQ(Stored().transmission[4], 0.51F);
}

TEST_F(GlassEditor, ThePropertysAccessKeyChangesNothing) {
    Open(4);
    Option("GlassProp_1")->click();
    Key(Qt::Key_P, Qt::AltModifier);
    EXPECT_EQ(FocusName(), "GlassProp_1");
    EXPECT_TRUE(Option("GlassProp_1")->isChecked());
}

TEST_F(GlassEditor, OkStoresNameAndBothProperties) {
    Open(4);
    nameField->setText(QStringLiteral("GREY"));
    Key(Qt::Key_Up);
    Option("GlassProp_1")->click();
    Key(Qt::Key_PageUp);
    Button("OkBut")->click();
    EXPECT_EQ(editor->result(), QDialog::Accepted);
    EXPECT_EQ(Stored().name, "GREY");
    EXPECT_FLOAT_EQ(Stored().transmission[4], 0.51F);
    EXPECT_FLOAT_EQ(Stored().absorption[4], 0.35F);
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassEditor, OkAfterARenameAloneMarksTheProjectChanged) {
    Open();
    nameField->setText(QStringLiteral("GREY"));
    Button("OkBut")->click();
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassEditor, OkWithoutAnyEditLeavesTheProjectUnchanged) {
    Open(4);
    Button("OkBut")->click();
    EXPECT_EQ(editor->result(), QDialog::Accepted) << "its own name is no other type's";
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassEditor, OkWithoutANameStaysOpen) {
    Open();
    nameField->clear();
    Button("OkBut")->click();
    EXPECT_THAT(prompts.Texts(), ElementsAre("The window type must have a name"));
    EXPECT_EQ(prompts.messages.front().buttons, Buttons::ok);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(FocusName(), "GlassText");
    EXPECT_EQ(Stored().name, "CLEAR");
}

TEST_F(GlassEditor, OkWithTheNameOfAnotherTypeStaysOpen) {
    Open();
    nameField->setText(QStringLiteral("TINTED"));
    Button("OkBut")->click();
    EXPECT_THAT(prompts.Texts(), ElementsAre("The name of the window must be unique"));
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(nameField->selectedText(), QStringLiteral("TINTED"));
    EXPECT_EQ(Stored().name, "CLEAR");
}

TEST_F(GlassEditor, KeepsTheBytesOfAName) {
    Stored().name = "5 \x80 \xDF";
    Open();
    Button("OkBut")->click();
    EXPECT_EQ(Stored().name, "5 \x80 \xDF");
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassEditor, ValueKeysMarkTheProjectChangedWhileOnlyTheCopyIs) {
    Open(4);
    Key(Qt::Key_Up);
    EXPECT_TRUE(project.changed);
    EXPECT_EQ(Stored().transmission[4], 0.5F);
}

TEST_F(GlassEditor, CancelClearsTheProjectsChangedFlagWhateverChangedBefore) {
    project.changed = true;
    Open(4);
    Key(Qt::Key_Up);
    nameField->setText(QStringLiteral("GREY"));
    Button("CancelBut")->click();
    EXPECT_EQ(editor->result(), QDialog::Rejected);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(Stored().name, "CLEAR");
    EXPECT_EQ(Stored().transmission[4], 0.5F);
}

TEST_F(GlassEditor, EscapeAndTheCloseBoxDiscardButLeaveTheChangedFlag) {
    for (const char* control : {"Graph", "GlassText", "EditLevel", "OkBut", "close box"}) {
        project.changed = true;
        Open(4);
        Key(Qt::Key_Up);
        if (std::string(control) == "close box") {
            editor->close();
        } else {
            Find(*editor, control)->setFocus();
            Key(Qt::Key_Escape);
        }
        EXPECT_FALSE(editor->isVisible()) << control;
        EXPECT_TRUE(project.changed) << control;
        EXPECT_EQ(Stored().transmission[4], 0.5F) << control;
    }
}

TEST_F(GlassEditor, ClosingTakesNoHalfTypedValueAnyMore) {
    OpenToType(4);
    QTest::keyPress(level, '9');
    project.changed = false;
    Key(Qt::Key_Escape);
    EXPECT_FALSE(project.changed);
}

} // namespace
} // namespace strativo
