#include "MainWindowTest.h"
#include "ui/WindowArea.h"

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QWheelEvent>

namespace strativo {
namespace {

using testing::ElementsAre;

/// A construction of FACE BRICK, PLASTER, INSULATION, the first current and marked.
class WindowKeys : public MainWindowTest {
protected:
    void StartWithThreeLayers() {
        Start();
        Choose("NewUValue");
        for (const char* material : {"INSULATION", "PLASTER", "FACE BRICK"})
            Insert(material);
        Area().Activate(1);
        ClickLine(List(1), 0);
    }

    QLineEdit* Field(const char* name) { return Find<QLineEdit>(1, name); }
    Construction& Record() { return TheProject().constructions[1]; }
};

TEST_F(WindowKeys, ClipboardKeysWorkInTheList) {
    StartWithThreeLayers();
    Press(Qt::Key_C, Qt::ControlModifier);
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(LayersShown(1), ElementsAre("FACE BRICK", "FACE BRICK", "PLASTER", "INSULATION"));
    EXPECT_THAT(MarksShown(1), ElementsAre(1));
    Press(Qt::Key_X, Qt::ControlModifier);
    ClickLine(List(1), 2);
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_THAT(LayersShown(1), ElementsAre("FACE BRICK", "PLASTER", "FACE BRICK", "INSULATION"));
    EXPECT_THAT(MarksShown(1), ElementsAre(2));
}

TEST_F(WindowKeys, ClipboardKeysWorkFromTheComboAndTheButton) {
    StartWithThreeLayers();
    Find<QComboBox>(1, "TypeCombo")->setFocus();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(TheProject().clipboard[1].name, "FACE BRICK");
    Find<QPushButton>(1, "VWConComments")->setFocus();
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(List(1)->count(), 4);
}

TEST_F(WindowKeys, ClipboardKeysWithFurtherModifiersDoNothing) {
    StartWithThreeLayers();
    Press(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
    Press(Qt::Key_X, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(List(1)->count(), 3);
}

TEST_F(WindowKeys, ListsLeaveTheClipboardOfTheSystemAlone) {
    StartWithThreeLayers();
    QApplication::clipboard()->setText(QStringLiteral("mine"));
    Press(Qt::Key_C, Qt::ControlModifier);
    Press(Qt::Key_Insert, Qt::ControlModifier);
    SelectMaterial("PLASTER");
    Press(Qt::Key_C, Qt::ControlModifier);
    Press(Qt::Key_Insert, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("mine"));
}

TEST_F(WindowKeys, DigitsAndThePointStartAThicknessFromAnywhere) {
    for (const char key : std::string("0123456789.")) {
        StartWithThreeLayers();
        QTest::keyClick(List(1), key);
        EXPECT_EQ(Focus(), "EditThick");
        EXPECT_EQ(TextOf(1, "EditThick"), std::string(1, key));
        program.reset();
    }
}

TEST_F(WindowKeys, DigitsStartAThicknessFromTheComboAndTheButton) {
    StartWithThreeLayers();
    for (const char* control : {"TypeCombo", "VWConComments"}) {
        Find(1, control)->setFocus();
        Press(Qt::Key_7);
        EXPECT_EQ(Focus(), "EditThick") << control;
        EXPECT_EQ(TextOf(1, "EditThick"), "7") << control;
    }
}

TEST_F(WindowKeys, KeypadDigitsCountAndModifiedOnesDoNot) {
    StartWithThreeLayers();
    Press(Qt::Key_5, Qt::AltModifier);
    Press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(Focus(), "Construction");
    Press(Qt::Key_5, Qt::KeypadModifier);
    EXPECT_EQ(TextOf(1, "EditThick"), "5");
}

TEST_F(WindowKeys, DigitsOfAnyKeyboardLayoutCount) {
    StartWithThreeLayers();
    QKeyEvent meta(QEvent::KeyPress, Qt::Key_5, Qt::MetaModifier, QStringLiteral("5"));
    QApplication::sendEvent(List(1), &meta);
    EXPECT_EQ(Focus(), "Construction");
    QKeyEvent shifted(QEvent::KeyPress, Qt::Key_ParenLeft, Qt::ShiftModifier, QStringLiteral("5"));
    QApplication::sendEvent(List(1), &shifted);
    EXPECT_EQ(Focus(), "EditThick");
    EXPECT_EQ(TextOf(1, "EditThick"), "5");
}

TEST_F(WindowKeys, DigitsInTheNameAndTheAbsorptionAreText) {
    StartWithThreeLayers();
    Field("NameText")->setFocus();
    Type("Wall 2");
    EXPECT_EQ(Focus(), "NameText");
    EXPECT_EQ(TextOf(1, "NameText"), "Wall 2");
    Find<QComboBox>(1, "TypeCombo")->setFocus();
    Press(Qt::Key_Down);
    Field("AbsorpText")->setFocus();
    Type("0.25");
    EXPECT_EQ(Focus(), "AbsorpText");
    EXPECT_EQ(TextOf(1, "AbsorpText"), "0.25");
}

TEST_F(WindowKeys, ClipboardKeysInAFieldAreTheFieldsOwn) {
    StartWithThreeLayers();
    Field("NameText")->setFocus();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Construction 1"));
    EXPECT_EQ(TheProject().clipboard[1].name, "FACE BRICK") << "from the insertion";
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(TextOf(1, "NameText"), "");
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(TextOf(1, "NameText"), "Construction 1");
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(List(1)->count(), 3);
}

TEST_F(WindowKeys, WorkAgainAsSoonAsAFieldIsLeft) {
    StartWithThreeLayers();
    Press(Qt::Key_7);
    ClickLine(List(1), 1);
    List(1)->setFocus();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(TheProject().clipboard[1].name, "PLASTER");
    Press(Qt::Key_8);
    EXPECT_EQ(TextOf(1, "EditThick"), "8");
}

TEST_F(WindowKeys, TurningTheWheelOverTheComboDoesNotChangeTheType) {
    StartWithThreeLayers();
    auto* combo = Find<QComboBox>(1, "TypeCombo");
    for (const bool focused : {false, true}) {
        if (focused)
            combo->setFocus();
        const QPointF place(10, 10);
        QWheelEvent turn(place, combo->mapToGlobal(place), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                         false);
        QApplication::sendEvent(combo, &turn);
        EXPECT_EQ(combo->currentIndex(), 0);
        EXPECT_EQ(Record().type, opaqueType);
    }
}

TEST_F(WindowKeys, TypeShowsTheAbsorptionAndMarksNothingAsChanged) {
    StartWithThreeLayers();
    TheProject().changed = false;
    EXPECT_FALSE(Field("AbsorpText")->isVisible());
    EXPECT_FALSE(Find(1, "AbsorptionLabel")->isVisible());
    Find<QComboBox>(1, "TypeCombo")->setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(Record().type, transparentType);
    EXPECT_TRUE(Field("AbsorpText")->isVisible());
    EXPECT_TRUE(Find(1, "AbsorptionLabel")->isVisible());
    Press(Qt::Key_Up);
    EXPECT_EQ(Record().type, opaqueType);
    EXPECT_FALSE(Field("AbsorpText")->isVisible());
    EXPECT_FALSE(TheProject().changed);
}

TEST_F(WindowKeys, ANewWindowLeavesTheTypesOfOthersAlone) {
    StartWithThreeLayers();
    Find<QComboBox>(1, "TypeCombo")->setFocus();
    Press(Qt::Key_Down);
    Choose("NewUValue");
    EXPECT_EQ(Record().type, transparentType);
    EXPECT_EQ(TheProject().constructions[2].type, opaqueType);
    Area().Activate(1);
    program->ShowProject();
    program->ShowProject();
    EXPECT_EQ(Find<QComboBox>(1, "TypeCombo")->currentText(), QStringLiteral("Transparent"));
    EXPECT_EQ(TheProject().constructions[2].type, opaqueType);
}

TEST_F(WindowKeys, ControlTabGoesRoundAllWindows) {
    StartWithThreeLayers();
    Choose("NewUValue");
    std::vector<int> visited;
    for (int i = 0; i < 3; ++i) {
        Press(Qt::Key_Tab, Qt::ControlModifier);
        visited.push_back(Area().Active());
    }
    EXPECT_THAT(visited, ElementsAre(UValueMDI::dialogId, 1, 2));
    EXPECT_TRUE(TheProject().currentConstruction == 2);
    Press(Qt::Key_F6, Qt::ControlModifier);
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    EXPECT_TRUE(TheProject().dialogActive);
    Press(Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Area().Active(), 2);
    Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Area().Active(), 1);
}

TEST_F(WindowKeys, ControlF4IsACloseRequest) {
    StartWithThreeLayers();
    Press(Qt::Key_F4, Qt::ControlModifier);
    EXPECT_TRUE(Area().Has(1)) << "refused";
    Area().Activate(UValueMDI::dialogId);
    Press(Qt::Key_F4, Qt::ControlModifier);
    EXPECT_TRUE(Area().IsHidden(UValueMDI::dialogId));
    EXPECT_EQ(Area().Active(), 1);
    Choose("EditWin");
    Press(Qt::Key_F4, Qt::ControlModifier);
    EXPECT_FALSE(Area().Has(UValueMDI::glassId));
}

TEST_F(WindowKeys, EnterPressesTheFocusedButton) {
    StartWithThreeLayers();
    TakeKeyboard(*program);
    Find(1, "VWConComments")->setFocus();
    InBox([](QWidget& shown) { EXPECT_EQ(shown.windowTitle(), QStringLiteral("Comments")); });
    Press(Qt::Key_Return);
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_EQ(List(1)->count(), 3);
}

TEST_F(WindowKeys, EscFromAMenuGivesTheKeysBackAtOnce) {
    StartWithThreeLayers();
    TakeKeyboard(*program);
    List(1)->setFocus();
    Press(Qt::Key_F10);
    QTest::keyClick(program->menuBar(), Qt::Key_Down);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Menu("Filemenu")->isVisible(); }));
    QTest::keyClick(Menu("Filemenu"), Qt::Key_Escape);
    EXPECT_FALSE(Menu("Filemenu")->isVisible());
    EXPECT_EQ(program->menuBar()->activeAction(), nullptr);
    EXPECT_EQ(Focus(), "Construction");
    Press(Qt::Key_7);
    EXPECT_EQ(TextOf(1, "EditThick"), "7");
}

TEST_F(WindowKeys, ControlTabPassesMinimisedWindowsBy) {
    StartWithThreeLayers();
    Choose("NewUValue");
    Choose("NewUValue");
    Area().SetMinimised(2, true);
    Area().Activate(1);
    Area().ActivateNext(false);
    EXPECT_EQ(Area().Active(), 3);
    EXPECT_TRUE(Area().IsMinimised(2));
    Area().ActivateNext(true);
    EXPECT_EQ(Area().Active(), 1);
}

} // namespace
} // namespace strativo
