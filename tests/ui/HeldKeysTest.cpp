#include "MainWindowTest.h"
#include "WindowTest.h"
#include "edit/GlassTypes.h"
#include "ui/UValue.h"
#include "ui/WINPRO.h"
#include "ui/WindowArea.h"

#include <QLineEdit>

namespace strativo {
namespace {

using testing::ElementsAre;

/// A key on a busy window system: repeats are not marked, only their times are equal.
class HeldKey {
public:
    HeldKey(int pressedKey, Qt::KeyboardModifiers held = {}, QString typed = {})
        : key(pressedKey), modifiers(held), text(std::move(typed)) {}

    void GoDown() { Send(QEvent::KeyPress, time += 500); }
    void Repeat(int times) {
        for (int i = 0; i < times; ++i) {
            Send(QEvent::KeyRelease, time += 30);
            Send(QEvent::KeyPress, time);
        }
    }
    void ComeUp() { Send(QEvent::KeyRelease, time += 15); }
    void Hold() {
        GoDown();
        Repeat(10);
        ComeUp();
    }

private:
    void Send(QEvent::Type type, quint64 at) {
        if (type == QEvent::KeyPress
            && qt_sendShortcutOverrideEvent(QApplication::focusWidget(), at, key, modifiers, text))
            return;
        QKeyEvent event(type, key, modifiers, text);
        event.setTimestamp(at);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }

    int key;
    Qt::KeyboardModifiers modifiers;
    QString text;
    static quint64 time; // goes on from one key to the next
};

quint64 HeldKey::time = 10'000;

class HeldKeys : public MainWindowTest {
protected:
    /// Construction 1 with five layers of 100 mm, the first one clicked.
    void StartWithLayers() {
        Start();
        Choose("NewUValue");
        for (int layer = 0; layer < 5; ++layer)
            Insert("PLASTER");
        Area().Activate(1);
        for (int layer = 1; layer <= 5; ++layer)
            Record().layers.Edit(layer).thickness = 100;
        Window(1)->ShowConstruction();
        ClickLine(List(1), 0);
        TakeKeyboard(*program);
        List(1)->setFocus();
    }

    Construction& Record() { return TheProject().constructions[1]; }
    int Layers() { return LayerCount(Record()); }
};

TEST_F(HeldKeys, DelRemovesOneLayer) {
    StartWithLayers();
    HeldKey(Qt::Key_Delete).Hold();
    EXPECT_EQ(Layers(), 4);
    HeldKey(Qt::Key_Delete).Hold();
    EXPECT_EQ(Layers(), 3) << "and another one when it is pressed again";
}

TEST_F(HeldKeys, CutTakesOneLayer) {
    StartWithLayers();
    HeldKey(Qt::Key_X, Qt::ControlModifier).Hold();
    EXPECT_EQ(Layers(), 4);
}

TEST_F(HeldKeys, CtrlZTakesOneStepBack) {
    StartWithLayers();
    for (int layer = 0; layer < 3; ++layer)
        HeldKey(Qt::Key_Delete).Hold();
    HeldKey(Qt::Key_Z, Qt::ControlModifier).Hold();
    EXPECT_EQ(Layers(), 3);
    HeldKey(Qt::Key_Z, Qt::ControlModifier).Hold();
    EXPECT_EQ(Layers(), 4) << "and another one when it is pressed again";
    HeldKey(Qt::Key_Y, Qt::ControlModifier).Hold();
    EXPECT_EQ(Layers(), 3);
}

TEST_F(HeldKeys, EnterInTheMaterialListInsertsOneLayer) {
    StartWithLayers();
    SelectMaterial("FACE BRICK");
    Area().Activate(UValueMDI::dialogId);
    Materials()->setFocus();
    HeldKey(Qt::Key_Return).Hold();
    EXPECT_EQ(Layers(), 6);
}

TEST_F(HeldKeys, EnterAfterAThicknessStoresOneAndMovesOnByOne) {
    StartWithLayers();
    Type("50");
    HeldKey(Qt::Key_Return).Hold();
    EXPECT_EQ(Record().layers[1].thickness, 50);
    EXPECT_EQ(Record().currentLayer, 2);
    EXPECT_EQ(Focus(), "Construction");
}

TEST_F(HeldKeys, EnterDoesNotAnswerTheBoxThatItOpened) {
    StartWithLayers();
    Type("0.5");
    HeldKey enter(Qt::Key_Return);
    InBox([&](QWidget& box) {
        box.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        enter.Repeat(5);
        EXPECT_TRUE(box.isVisible());
        enter.ComeUp();
        QTest::keyClick(box.focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(box.isVisible()) << "the next press does";
    });
    enter.GoDown();
    EXPECT_EQ(LastBox().title, "Thickness error");
}

TEST_F(HeldKeys, EnterThatClosedABoxDoesNotEnterTheThicknessAgain) {
    StartWithLayers();
    Type("0.5");
    HeldKey enter(Qt::Key_Return);
    InBox([&](QWidget& box) {
        box.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        enter.GoDown();
        EXPECT_FALSE(box.isVisible());
    });
    Press(Qt::Key_Return);
    const std::size_t shown = boxes.size();
    TakeKeyboard(*program);
    enter.Repeat(5);
    enter.ComeUp();
    EXPECT_EQ(boxes.size(), shown);
    EXPECT_EQ(Focus(), "EditThick");
}

TEST_F(HeldKeys, ADigitBeginsOneThicknessAndRepeatsWithinTheField) {
    StartWithLayers();
    HeldKey one(Qt::Key_1, {}, QStringLiteral("1"));
    one.GoDown();
    EXPECT_EQ(Focus(), "EditThick");
    one.Repeat(2);
    EXPECT_EQ(TextOf(1, "EditThick"), "111");
    List(1)->setFocus();
    one.Repeat(3);
    EXPECT_EQ(Focus(), "Construction") << "its repeats begin no other";
    EXPECT_EQ(TextOf(1, "EditThick"), "100");
}

TEST_F(HeldKeys, ArrowsGoOn) {
    StartWithLayers();
    HeldKey down(Qt::Key_Down);
    down.GoDown();
    down.Repeat(2);
    down.ComeUp();
    EXPECT_EQ(Record().currentLayer, 4);
    EXPECT_THAT(MarksShown(1), ElementsAre(3));
}

class HeldKeysInTheGlassEditor : public WindowTest {
protected:
    HeldKeysInTheGlassEditor() {
        AddGlassType(project, "CLEAR");
        for (float& value : project.glassTypes[1].transmission)
            value = 0.5F;
        project.selectedProfileColumn = 4;
    }
};

TEST_F(HeldKeysInTheGlassEditor, EnterGoesOnByOneColumn) {
    Profile editor(program);
    Show(editor);
    Find(editor, "EditLevel")->setFocus();
    HeldKey(Qt::Key_Return).Hold();
    EXPECT_EQ(project.selectedProfileColumn, 5);
}

TEST_F(HeldKeysInTheGlassEditor, UpGoesOn) {
    Profile editor(program);
    Show(editor);
    Find(editor, "Graph")->setFocus();
    HeldKey(Qt::Key_Up).Hold();
    EXPECT_EQ(Bytes(Find<QLineEdit>(editor, "EditLevel")->text()), "0.610");
}

} // namespace
} // namespace strativo
