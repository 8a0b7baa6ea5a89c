#include "MainWindowTest.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>

namespace strativo {
namespace {

using testing::ElementsAre;

/// A transparent construction of FACE BRICK and PLASTER, each 100 mm thick, the first current.
class EntryFields : public MainWindowTest {
protected:
    void StartWithTwoLayers() {
        Start();
        Choose("NewUValue");
        Insert("PLASTER");
        Insert("FACE BRICK");
        Area().Activate(1);
        Record().type = transparentType;
        for (const int layer : {1, 2}) {
            Record().layers.Edit(layer).thickness = 100;
            Record().layers.Edit(layer).absorption = 0.5F;
        }
        Window(1)->ShowConstruction();
        ClickLine(List(1), 0);
        TheProject().changed = false;
    }

    QLineEdit* Field(const char* name) { return Find<QLineEdit>(1, name); }
    Construction& Record() { return TheProject().constructions[1]; }
    double Thickness(int layer) { return Record().layers[layer].thickness; }

    void Paste(const char* fieldName, const QString& text) {
        QApplication::clipboard()->setText(text);
        TakeKeyboard(*program);
        Field(fieldName)->setFocus();
        Press(Qt::Key_A, Qt::ControlModifier);
        Press(Qt::Key_V, Qt::ControlModifier);
    }

    /// Types into the field, replacing what is there, and presses Enter.
    void Enter(const char* fieldName, const char* text) {
        TakeKeyboard(*program);
        Field(fieldName)->setFocus();
        Press(Qt::Key_A, Qt::ControlModifier);
        Type(text);
        Press(Qt::Key_Return);
    }
};

TEST_F(EntryFields, EnterStoresTheThicknessAndMovesOn) {
    StartWithTwoLayers();
    Record().layers.Edit(2).thickness = 13;
    Enter("EditThick", "215");
    EXPECT_EQ(Thickness(1), 215);
    EXPECT_TRUE(TheProject().changed);
    EXPECT_TRUE(Record().window.edited);
    EXPECT_EQ(Record().currentLayer, 2);
    EXPECT_THAT(MarksShown(1), ElementsAre(1));
    EXPECT_EQ(List(1)->currentRow(), 1);
    EXPECT_EQ(Focus(), "Construction");
    EXPECT_EQ(TextOf(1, "EditThick"), "13");
    EXPECT_EQ(TextOf(1, "ConName"), "PLASTER");
}

TEST_F(EntryFields, TheStatusBarTellsWhatIsImplausibleAboutTheCurrentLayer) {
    StartWithTwoLayers();
    ClickLine(List(1), 1);
    EXPECT_EQ(StatusText("LayerStatus"), "");
    Answer("Yes"); // to a thickness above one metre
    Enter("EditThick", "2500");
    const std::string told = "Layer 2: 2500 mm is more than 2000";
    EXPECT_EQ(StatusText("LayerStatus"), told);
    EXPECT_EQ(program->findChild<QWidget*>(QStringLiteral("LayerStatus"))->toolTip().toStdString(),
              told);
    ClickLine(List(1), 0);
    EXPECT_EQ(StatusText("LayerStatus"), "");
    ClickLine(List(1), 1);
    EXPECT_EQ(StatusText("LayerStatus"), told);
    Enter("EditThick", "13");
    EXPECT_EQ(StatusText("LayerStatus"), "");
}

TEST_F(EntryFields, EnterOnTheLastLineStaysThereUnmarked) {
    StartWithTwoLayers();
    ClickLine(List(1), 1);
    Enter("EditThick", "20");
    EXPECT_EQ(Thickness(2), 20);
    EXPECT_EQ(Record().currentLayer, 2);
    EXPECT_EQ(List(1)->currentRow(), 1);
    EXPECT_THAT(MarksShown(1), testing::IsEmpty());
}

TEST_F(EntryFields, ThinLayersAreRefusedAndTheTextStaysForCorrection) {
    StartWithTwoLayers();
    Answer("OK");
    Enter("EditThick", "0.5");
    EXPECT_EQ(LastBox().text, "Thickness is set to less than 1");
    EXPECT_EQ(LastBox().title, "Thickness error");
    EXPECT_EQ(Thickness(1), 100);
    EXPECT_FALSE(TheProject().changed);
    EXPECT_EQ(TextOf(1, "EditThick"), "0.5");
    EXPECT_EQ(Field("EditThick")->selectedText(), QStringLiteral("0.5"));
    EXPECT_TRUE(Field("EditThick")->hasFocus()
                || Window(1)->window()->focusWidget() == Field("EditThick"));
}

TEST_F(EntryFields, TextThatIsNoNumberIsAThicknessOfNothing) {
    StartWithTwoLayers();
    Answer("OK");
    Enter("EditThick", "abc");
    EXPECT_EQ(LastBox().text, "Thickness is set to less than 1");
    EXPECT_EQ(Thickness(1), 100);
}

TEST_F(EntryFields, ThickLayersAreAskedAbout) {
    StartWithTwoLayers();
    Answer("No");
    Enter("EditThick", "1500");
    EXPECT_EQ(LastBox().text, "Thickness is Greater than 1m, do you want this value");
    EXPECT_EQ(LastBox().title, "Thickness warning");
    EXPECT_THAT(LastBox().buttons, testing::UnorderedElementsAre("Yes", "No"));
    EXPECT_EQ(Thickness(1), 100);
    EXPECT_EQ(Field("EditThick")->selectedText(), QStringLiteral("1500"));
    Answer("Yes");
    Enter("EditThick", "1500");
    EXPECT_EQ(Thickness(1), 1500);
}

TEST_F(EntryFields, ClosingOrJustEndingTheQuestionIsANo) {
    StartWithTwoLayers();
    const auto close = [](QWidget& box) { box.close(); };
    const auto enter = [](QWidget& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); };
    for (const auto& answer :
         {std::function<void(QWidget&)>(close), std::function<void(QWidget&)>(enter)}) {
        InBox(answer);
        Enter("EditThick", "1500");
        EXPECT_EQ(Thickness(1), 100);
        EXPECT_EQ(Field("EditThick")->selectedText(), QStringLiteral("1500"));
    }
}

TEST_F(EntryFields, PaintingTheWindowLeavesHalfTypedTextAlone) {
    StartWithTwoLayers();
    for (const char* name : {"NameText", "EditThick", "AbsorpText"}) {
        Field(name)->setFocus();
        Type("7");
        Window(1)->grab();
        EXPECT_EQ(TextOf(1, name), "7") << name;
    }
}

TEST_F(EntryFields, TheLimitsThemselvesAreNotAskedAbout) {
    StartWithTwoLayers();
    Enter("EditThick", "1");
    EXPECT_EQ(Thickness(1), 1);
    Enter("EditThick", "1000");
    EXPECT_EQ(Thickness(2), 1000);
}

TEST_F(EntryFields, ResistanceCavitiesTakeAnyValue) {
    StartWithTwoLayers();
    Record().layers.Edit(1).conductivity = -3;
    Enter("EditThick", "0.5");
    EXPECT_EQ(Thickness(1), 0.5);
}

TEST_F(EntryFields, ANumberTooLargeIsReportedAndRefused) {
    StartWithTwoLayers();
    for (const char* field : {"EditThick", "AbsorpText"}) {
        Answer("OK");
        Enter(field, "1e39");
        EXPECT_EQ(LastBox().text, "The number is too large: run-time error 6 occurred.");
        EXPECT_EQ(Field(field)->selectedText(), QStringLiteral("1e39"));
    }
    EXPECT_EQ(Thickness(1), 100);
    EXPECT_EQ(Record().layers[1].absorption, 0.5F);
}

TEST_F(EntryFields, AbsorptionIsStoredWhateverItIsWithoutMarkingAChange) {
    StartWithTwoLayers();
    Enter("AbsorpText", "-7");
    EXPECT_EQ(Record().layers[1].absorption, -7);
    EXPECT_FALSE(TheProject().changed);
    EXPECT_EQ(Focus(), "Construction");
    EXPECT_EQ(TextOf(1, "AbsorpText"), "-7.00");
    Enter("AbsorpText", "none");
    EXPECT_EQ(Record().layers[1].absorption, 0);
}

TEST_F(EntryFields, NameIsStoredWithoutMarkingAChange) {
    StartWithTwoLayers();
    Enter("NameText", "North wall");
    EXPECT_EQ(Record().name, "North wall");
    EXPECT_FALSE(TheProject().changed);
    EXPECT_EQ(Focus(), "Construction");
}

TEST_F(EntryFields, LeavingRestoresWhatIsStored) {
    StartWithTwoLayers();
    for (const char* field : {"NameText", "EditThick", "AbsorpText"}) {
        const std::string stored = TextOf(1, field);
        Field(field)->setFocus();
        Type("77");
        EXPECT_NE(TextOf(1, field), stored);
        Press(Qt::Key_Tab);
        EXPECT_EQ(TextOf(1, field), stored) << field;
    }
    EXPECT_EQ(TextOf(1, "IndexText"), "1");
    EXPECT_EQ(Thickness(1), 100);
}

TEST_F(EntryFields, GoingToAnotherWindowIsLeaving) {
    StartWithTwoLayers();
    Field("EditThick")->setFocus();
    Type("77");
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_NE(Area().Active(), 1);
    EXPECT_EQ(TextOf(1, "EditThick"), "100");
    Area().Activate(1);
    EXPECT_EQ(Focus(), "EditThick") << "its last focus comes back";
    EXPECT_EQ(Field("EditThick")->selectedText(), QStringLiteral("100"));
}

TEST_F(EntryFields, EscapeRestoresAndGoesToTheList) {
    StartWithTwoLayers();
    for (const char* field : {"NameText", "EditThick", "AbsorpText"}) {
        const std::string stored = TextOf(1, field);
        Field(field)->setFocus();
        Type("77");
        Press(Qt::Key_Escape);
        EXPECT_EQ(Focus(), "Construction");
        EXPECT_EQ(TextOf(1, field), stored) << field;
    }
}

TEST_F(EntryFields, HalfTypedTextOutlivesBoxesAndMenus) {
    StartWithTwoLayers();
    for (const char* name : {"NameText", "EditThick", "AbsorpText"}) {
        QLineEdit* field = Field(name);
        field->setFocus();
        Type("77");
        Answer("OK");
        Choose("HelpAbout");
        EXPECT_EQ(TextOf(1, name), "77");
        Menu("Filemenu")->popup(QPoint(0, 0));
        Menu("Filemenu")->close();
        EXPECT_EQ(TextOf(1, name), "77");
        field->setFocus();
        Press(Qt::Key_Escape);
    }
}

TEST_F(EntryFields, HalfTypedTextOutlivesTheMenuKeysAndOtherPrograms) {
    StartWithTwoLayers();
    Field("EditThick")->setFocus();
    Type("77");
    Press(Qt::Key_F10);
    QTest::keyClick(Menu("Filemenu"), Qt::Key_Escape);
    EXPECT_EQ(TextOf(1, "EditThick"), "77");
    EXPECT_EQ(Focus(), "EditThick");
    QWidget otherProgram;
    otherProgram.show();
    TakeKeyboard(otherProgram);
    EXPECT_FALSE(Field("EditThick")->hasFocus());
    TakeKeyboard(*program);
    EXPECT_EQ(TextOf(1, "EditThick"), "77");
    EXPECT_EQ(Focus(), "EditThick");
    EXPECT_FALSE(Field("EditThick")->hasSelectedText());
}

TEST_F(EntryFields, HalfTypedNameOutlivesACommandOnTheLayers) {
    StartWithTwoLayers();
    Field("NameText")->setFocus();
    Type("Roof");
    Choose("Edit_Paste");
    EXPECT_EQ(List(1)->count(), 3);
    EXPECT_EQ(TextOf(1, "NameText"), "Roof");
    Press(Qt::Key_Return);
    EXPECT_EQ(Record().name, "Roof");
}

TEST_F(EntryFields, MenuCommandsDoNotCommitAHalfTypedValue) {
    StartWithTwoLayers();
    TheProject().constructionFile = (folder.Path() / "a.con").string();
    Enter("EditThick", "50");
    Field("EditThick")->setFocus();
    Type("77");
    Answer("Yes");
    Record().layers.Edit(1).absorption = 0;
    Record().layers.Edit(2).absorption = 0;
    Choose("SaveProject");
    EXPECT_EQ(Thickness(1), 50);
    EXPECT_EQ(Thickness(2), 100);
    EXPECT_EQ(folder.Read("a.con").find("77"), std::string::npos);
}

TEST_F(EntryFields, EnterInAnEmptyListIsSwallowedAndEscapeGetsOut) {
    Start();
    Choose("NewUValue");
    Press(Qt::Key_7);
    Press(Qt::Key_Return);
    EXPECT_EQ(Focus(), "EditThick");
    EXPECT_EQ(TextOf(1, "EditThick"), "7");
    EXPECT_FALSE(TheProject().changed);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Focus(), "Construction");
    EXPECT_EQ(TextOf(1, "EditThick"), "");
}

TEST_F(EntryFields, EverythingIsSelectedOnGettingTheFocus) {
    StartWithTwoLayers();
    List(1)->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_EQ(Field("EditThick")->selectedText(), QStringLiteral("100"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(Field("AbsorpText")->selectedText(), QStringLiteral("0.50"));
    Press(Qt::Key_N, Qt::AltModifier);
    Press(Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(Field("EditThick")->selectedText(), QStringLiteral("100"));
    Field("NameText")->setFocus(Qt::MouseFocusReason);
    QTest::mouseClick(Field("NameText"), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(Field("NameText")->selectedText(), QStringLiteral("Construction 1"));
    QTest::mouseClick(Field("NameText"), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_FALSE(Field("NameText")->hasSelectedText()) << "the second click sets the caret";
}

TEST_F(EntryFields, FocusIsShownInTheSelectionColours) {
    StartWithTwoLayers();
    const QPalette system = QApplication::palette();
    for (const char* name : {"NameText", "EditThick", "AbsorpText"}) {
        QLineEdit* field = Field(name);
        field->setFocus();
        EXPECT_EQ(field->palette().color(QPalette::Base), system.color(QPalette::Highlight));
        EXPECT_EQ(field->palette().color(QPalette::Text), system.color(QPalette::HighlightedText));
        List(1)->setFocus();
        EXPECT_EQ(field->palette().color(QPalette::Base), system.color(QPalette::Base));
        EXPECT_EQ(field->palette().color(QPalette::Text), system.color(QPalette::Text));
    }
}

TEST_F(EntryFields, ACommaBecomesAPointAtOnce) {
    StartWithTwoLayers();
    Field("EditThick")->setFocus();
    Type("12,5");
    EXPECT_EQ(TextOf(1, "EditThick"), "12.5");
    Paste("AbsorpText", QStringLiteral("0,25"));
    EXPECT_EQ(TextOf(1, "AbsorpText"), "0.25");
    Paste("NameText", QStringLiteral("Wall, old"));
    EXPECT_EQ(TextOf(1, "NameText"), "Wall, old") << "names keep theirs";
}

TEST_F(EntryFields, PastedControlCharactersBecomeBlanks) {
    StartWithTwoLayers();
    Paste("NameText", QStringLiteral("a\r\nb\tc") + QChar(127) + QLatin1Char('d'));
    EXPECT_EQ(TextOf(1, "NameText"), "a  b c d");
}

TEST_F(EntryFields, LettersThatFilesCannotHoldBecomeQuestionMarks) {
    StartWithTwoLayers();
    Paste("NameText", QString::fromUtf8("Wand \xC3\xA4 \xE2\x82\xAC \xCE\xA9 \xF0\x9F\x8F\xA0!"));
    EXPECT_EQ(TextOf(1, "NameText"), "Wand \xC3\xA4 \xE2\x82\xAC ? ?!");
    Press(Qt::Key_Return);
    EXPECT_EQ(Record().name, "Wand \xE4 \x80 ? ?!");
}

TEST_F(EntryFields, TheCaretStaysBehindACorrectedLetter) {
    StartWithTwoLayers();
    Paste("NameText", QStringLiteral("ab"));
    Press(Qt::Key_Left);
    QApplication::clipboard()->setText(QString::fromUtf8("\xF0\x9F\x8F\xA0"));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(TextOf(1, "NameText"), "a?b");
    EXPECT_EQ(Field("NameText")->cursorPosition(), 2);
}

TEST_F(EntryFields, TakeNoDrops) {
    StartWithTwoLayers();
    for (const char* name : {"NameText", "EditThick", "AbsorpText"})
        EXPECT_FALSE(Field(name)->acceptDrops()) << name;
}

TEST_F(EntryFields, ALayerWithoutThicknessShowsAnEmptyField) {
    StartWithTwoLayers();
    Record().layers.Edit(2).thickness = 0;
    ClickLine(List(1), 1);
    EXPECT_EQ(TextOf(1, "EditThick"), "");
    Record().layers.Edit(1).thickness = 0.25;
    ClickLine(List(1), 0);
    EXPECT_EQ(TextOf(1, "EditThick"), "0.250");
}

TEST_F(EntryFields, KeepAHalfTypedThicknessWhenALayerWithoutOneIsPasted) {
    StartWithTwoLayers();
    Press(Qt::Key_7);
    Choose("Edit_Paste");
    EXPECT_EQ(TextOf(1, "EditThick"), "7") << "the layer pasted has none to show";
    Choose("Edit_Cut");
    EXPECT_EQ(Record().currentLayer, 2);
    EXPECT_EQ(TextOf(1, "EditThick"), "100");
}

TEST_F(EntryFields, ANegativeResistanceIsShownAsItWasEntered) {
    StartWithTwoLayers();
    Record().layers.Edit(2).conductivity = -3;
    ClickLine(List(1), 1);
    Enter("EditThick", "-5");
    EXPECT_EQ(Thickness(2), -5);
    EXPECT_EQ(TextOf(1, "EditThick"), "-5");
}

TEST_F(EntryFields, ALayerOfThicknessZeroEmptiesTheFieldAfterANegativeResistance) {
    StartWithTwoLayers();
    Record().layers.Edit(1).thickness = 0;
    Record().layers.Edit(2).conductivity = -3;
    ClickLine(List(1), 1);
    Enter("EditThick", "-5");
    ClickLine(List(1), 0);
    EXPECT_EQ(TextOf(1, "EditThick"), "");
    EXPECT_EQ(Record().window.shownThickness, 0);
    Press(Qt::Key_Down);
    EXPECT_EQ(TextOf(1, "EditThick"), "") << "unchanged over a negative number";
}

TEST_F(EntryFields, KeepTheStaleThicknessWhenALayerWithoutOneIsPasted) {
    StartWithTwoLayers();
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(TextOf(1, "ConName"), "FACE BRICK");
    EXPECT_EQ(Thickness(2), 0);
    EXPECT_EQ(TextOf(1, "EditThick"), "100");
}

TEST_F(EntryFields, LeavingTheThicknessOverANegativeValueLeavesItsTextUnchanged) {
    for (const float conductivity : {0.5F, -3.0F}) {
        StartWithTwoLayers();
        Record().layers.Edit(1).conductivity = conductivity;
        Record().layers.Edit(1).thickness = -0.25;
        TakeKeyboard(*program);
        Field("EditThick")->setFocus();
        Press(Qt::Key_A, Qt::ControlModifier);
        Type("77");
        Find(1, "NameText")->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(TextOf(1, "EditThick"), "77");
        EXPECT_EQ(Thickness(1), -0.25);
    }
}

TEST_F(EntryFields, ARefusedThicknessShowsWhatIsStored) {
    StartWithTwoLayers();
    Record().layers.Edit(3) = Record().layers[2];
    Record().layers.Edit(2) = Layer();
    Record().currentLayer = 0;
    Window(1)->ShowConstruction();
    Answer("OK");
    Enter("EditThick", "0");
    EXPECT_EQ(TextOf(1, "ConName"), "");
    EXPECT_EQ(Record().currentLayer, 0);
    EXPECT_EQ(Record().layers[3].name, "PLASTER");
    EXPECT_THAT(LayersShown(1), ElementsAre("FACE BRICK", "PLASTER"));
}

} // namespace
} // namespace strativo
