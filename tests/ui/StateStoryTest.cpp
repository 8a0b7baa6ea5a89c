#include "MainWindowTest.h"
#include "edit/MenuStates.h"
#include "ui/UValue.h"
#include "ui/WindowArea.h"

#include <QLineEdit>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// One sitting, step by step, with every state checked after each step.
class StateStory : public MainWindowTest {
protected:
    struct State {
        bool changed;
        int construction;
        int layer;
        std::vector<int> marked;
        std::string clip;
        bool dialogActive;
    };

    void Expect(const std::string& step, const State& expected) {
        SCOPED_TRACE(step);
        const Project& project = TheProject();
        const int current = project.currentConstruction;
        EXPECT_EQ(project.changed, expected.changed);
        EXPECT_EQ(current, expected.construction);
        EXPECT_EQ(project.constructions[current].currentLayer, expected.layer);
        EXPECT_EQ(MarkedLayers(project, current), expected.marked);
        EXPECT_EQ(project.clipboard[1].name, expected.clip);
        EXPECT_EQ(project.dialogActive, expected.dialogActive);
        if (InUse(project, current) && !expected.dialogActive)
            ExpectMarksShown(expected.marked);
    }

    void ExpectMarksShown(const std::vector<int>& layers) {
        std::vector<int> lines;
        for (const int layer : layers)
            lines.push_back(layer - 1);
        EXPECT_EQ(MarksShown(TheProject().currentConstruction), lines);
        EXPECT_EQ(List(TheProject().currentConstruction)->currentRow(),
                  TheProject().constructions[TheProject().currentConstruction].currentLayer - 1);
    }

    std::vector<bool> EditMenuEnabled() {
        std::vector<bool> enabled;
        for (const char* item :
             {"Edit_Cut", "Edit_Copy", "Edit_Paste", "Edit_PBefore", "Edit_delete", "EditWin"})
            enabled.push_back(IsEnabled(item));
        return enabled;
    }

    /// Two constructions, INSULATION and FACE BRICK in the second, PLASTER dropped on the first.
    void TellUpToTheDrop() {
        Start();
        Choose("NewUValue");
        Choose("NewUValue");
        MoveWindow(2, {500, 0});
        Insert("FACE BRICK");
        Insert("INSULATION");
        SelectMaterial("PLASTER");
        DragLine(Materials(), Materials()->currentRow(), List(1), 0);
    }
};

TEST_F(StateStory, StartsWithTheDialogActiveAndNothingElse) {
    Start();
    Expect("start", {false, 1, 0, {}, "", true});
    EXPECT_EQ(Focus(), "UValueList");
    EXPECT_EQ(Materials()->count(), 0);
    EXPECT_THAT(EditMenuEnabled(), ElementsAre(false, true, false, false, false, true));
    EXPECT_FALSE(IsEnabled("SaveProject"));
    EXPECT_FALSE(IsEnabled("CloseUValue"));
    EXPECT_TRUE(IsEnabled("SaveProjectAs"));
}

TEST_F(StateStory, NewConstructionReadsTheLibraryAndIsReadyForEntries) {
    Start();
    Choose("NewUValue");
    Expect("new", {false, 1, 0, {}, "", false});
    EXPECT_EQ(Focus(), "Construction");
    EXPECT_EQ(TextOf(1, "Result"), "n/a");
    EXPECT_EQ(TextOf(1, "NameText"), "Construction 1");
    EXPECT_EQ(TextOf(1, "AbsorpText"), "0.00");
    EXPECT_EQ(TextOf(1, "EditThick"), "");
    ASSERT_EQ(Materials()->count(), 9);
    EXPECT_TRUE(Materials()->item(6)->text().startsWith(QLatin1String("FACE BRICK")));
    EXPECT_THAT(EditMenuEnabled(), ElementsAre(false, false, false, false, false, true));
    Choose("NewUValue");
    Expect("second", {false, 2, 0, {}, "", false});
    EXPECT_EQ(Area().Caption(2), QStringLiteral("Construction 2"));
}

TEST_F(StateStory, MaterialsGoInFromTheDialogWithoutLeavingIt) {
    Start();
    Choose("NewUValue");
    Choose("NewUValue");
    SelectMaterial("FACE BRICK");
    Press(Qt::Key_C, Qt::ControlModifier);
    Expect("copied", {false, 2, 0, {}, "FACE BRICK", true});
    Press(Qt::Key_Return);
    Expect("inserted", {true, 2, 1, {1}, "FACE BRICK", true});
    Insert("INSULATION");
    Expect("inserted before", {true, 2, 1, {1}, "INSULATION", true});
    EXPECT_THAT(LayersShown(2), ElementsAre("INSULATION", "FACE BRICK"));
    EXPECT_EQ(Focus(), "UValueList");
}

TEST_F(StateStory, ADropMakesItsConstructionCurrentAndActive) {
    TellUpToTheDrop();
    Expect("dropped", {true, 1, 1, {}, "PLASTER", false});
    EXPECT_THAT(LayersShown(1), ElementsAre("PLASTER"));
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_EQ(Focus(), "Construction");
}

TEST_F(StateStory, DigitsAndEnterStoreAThickness) {
    TellUpToTheDrop();
    Press(Qt::Key_1);
    Expect("digit", {true, 1, 1, {}, "PLASTER", false});
    EXPECT_EQ(Focus(), "EditThick");
    auto* field = Find<QLineEdit>(1, "EditThick");
    EXPECT_EQ(field->text(), QStringLiteral("1"));
    EXPECT_EQ(field->cursorPosition(), 1);
    EXPECT_FALSE(field->hasSelectedText());
    Press(Qt::Key_3);
    Press(Qt::Key_Return);
    Expect("entered", {true, 1, 1, {}, "PLASTER", false});
    EXPECT_EQ(TheProject().constructions[1].layers[1].thickness, 13);
    EXPECT_EQ(Focus(), "Construction");
    EXPECT_EQ(TextOf(1, "Result"), "4.85");
}

TEST_F(StateStory, ClipboardKeysActOnTheWindowDroppedOn) {
    TellUpToTheDrop();
    Type("13");
    Press(Qt::Key_Return);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(TheProject().clipboard[1].thickness, 0) << "nothing is marked: kept as it was";
    Press(Qt::Key_V, Qt::ControlModifier);
    Expect("pasted", {true, 1, 2, {2}, "PLASTER", false});
    EXPECT_EQ(TextOf(1, "Result"), "n/a");
    ClickLine(List(1), 0);
    Press(Qt::Key_X, Qt::ControlModifier);
    Expect("cut", {true, 1, 1, {1}, "PLASTER", false});
    EXPECT_EQ(TheProject().clipboard[1].thickness, 13);
    Press(Qt::Key_X, Qt::ControlModifier);
    Expect("cut again", {true, 1, 0, {}, "PLASTER", false});
    EXPECT_THAT(LayersShown(1), IsEmpty());
    EXPECT_THAT(EditMenuEnabled(), ElementsAre(false, false, true, true, false, true));
    Press(Qt::Key_Delete);
    Expect("delete in an empty list", {true, 1, 0, {}, "PLASTER", false});
}

TEST_F(StateStory, RemovedAndNewConstructionsFollowTheActiveWindow) {
    TellUpToTheDrop();
    Choose("CloseUValue");
    Expect("removed", {true, 2, 1, {1}, "PLASTER", false});
    EXPECT_EQ(Area().Active(), 2);
    EXPECT_EQ(program->ConstructionWindow(1), nullptr);
    Choose("NewUValue");
    Expect("new in the free slot", {true, 1, 0, {}, "PLASTER", false});
    EXPECT_THAT(LayersShown(1), IsEmpty());
    EXPECT_EQ(TextOf(1, "NameText"), "Construction 1");
}

TEST_F(StateStory, NewConstructionFileKeepsEverythingOnNo) {
    TellUpToTheDrop();
    Answer("No");
    Choose("NewProject");
    EXPECT_EQ(LastBox().text, "Changes have not been saved.  Continue without saving?");
    EXPECT_EQ(LastBox().title, "Warning");
    Expect("refused", {true, 1, 1, {}, "PLASTER", false});
    EXPECT_THAT(Area().Windows(), ElementsAre(UValueMDI::dialogId, 1, 2));
}

TEST_F(StateStory, NewConstructionFileLeavesTheDialogAndTheClipboardOnYes) {
    TellUpToTheDrop();
    Answer("Yes");
    Choose("NewProject");
    Expect("new file", {false, 1, 0, {}, "PLASTER", true});
    EXPECT_THAT(Area().Windows(), ElementsAre(UValueMDI::dialogId));
    EXPECT_EQ(Focus(), "UValueList");
    EXPECT_EQ(Materials()->count(), 9);
}

TEST_F(StateStory, ANoToANewFileLeavesTheDialogActive) {
    TellUpToTheDrop();
    Area().Activate(UValueMDI::dialogId);
    Answer("No");
    Choose("NewProject");
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    EXPECT_TRUE(TheProject().dialogActive);
}

} // namespace
} // namespace strativo
