#include "MainWindowTest.h"
#include "ui/DragImage.h"
#include "ui/MaterialList.h"
#include "ui/UvalsDialog.h"
#include "ui/WindowArea.h"

#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QStatusBar>
#include <QToolButton>

#include <sys/stat.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SelectMaterial : public MainWindowTest {
protected:
    void StartWithConstruction() {
        Start();
        Choose("NewUValue");
    }

    void LoadUserLibrary() {
        ChooseFile(
            folder.Write("user.lby", "12* HEMP,0.04 40 1600\r\n15* CORK,0.045 150 1880\r\n"));
        Choose("LoadMaterials");
    }

    QRadioButton* Option(int index) {
        return FindInDialog<QRadioButton>(index == 0 ? "MatOption_0" : "MatOption_1");
    }
    std::string LabelText(const char* name) {
        return FindInDialog<QLabel>(name)->text().toStdString();
    }
    /// What the drag image of a visible row drew last.
    const QPixmap& Picture(int row) {
        const std::string name = "Label2_" + std::to_string(row);
        return dynamic_cast<DragImage*>(FindInDialog<QLabel>(name.c_str()))->Picture();
    }
    std::string Caption() { return Area().Caption(UValueMDI::dialogId).toStdString(); }
    const ClipEntry& Clip(int slot) { return TheProject().clipboard[slot]; }

    void FillClipboard() {
        for (int slot = 1; slot <= 3; ++slot) {
            TheProject().clipboard[slot].name = "OLD";
            TheProject().clipboard[slot].absorption = 0.5F;
        }
    }
};

TEST_F(SelectMaterial, IsCaptionedLetterForLetter) {
    StartWithConstruction();
    EXPECT_EQ(Caption(), "Select Material : " + library);
    EXPECT_EQ(Option(0)->text(), QStringLiteral("&Standard File"));
    EXPECT_EQ(Option(1)->text(), QStringLiteral("&User File"));
    EXPECT_EQ(LabelText("Label4"), " &Name   of     component");
    EXPECT_EQ(LabelText("Label1_0"), "  Conductivity    W/m/\xC2\xB0"
                                     "C");
    EXPECT_EQ(LabelText("Label1_1"), "    Density    Kg/m3");
    EXPECT_EQ(LabelText("Label1_2"), " Specfic Heat   J/Kg/\xC2\xB0"
                                     "C")
        << "it has always read so";
    for (const char* image : {"Label2_0", "Label2_1", "Label2_2", "Label2_3"})
        EXPECT_EQ(LabelText(image), " &Name   of     component");
}

TEST_F(SelectMaterial, ShowsFourLinesInAFixedPitchFont) {
    StartWithConstruction();
    EXPECT_EQ(Materials()->height(), 66) << "990 twips";
    EXPECT_TRUE(QFontInfo(Materials()->font()).fixedPitch());
    EXPECT_EQ(Materials()->visualItemRect(Materials()->item(0)).height(), 16);
}

TEST_F(SelectMaterial, StartsOnTheStandardLibraryWithNoUserLibraryToChoose) {
    Start();
    EXPECT_TRUE(Option(0)->isChecked());
    EXPECT_TRUE(Option(0)->isEnabled());
    EXPECT_FALSE(Option(1)->isEnabled());
}

TEST_F(SelectMaterial, ALoadedUserLibraryIsShownAndCanBeLeftAgain) {
    StartWithConstruction();
    LoadUserLibrary();
    EXPECT_TRUE(Option(1)->isEnabled());
    EXPECT_TRUE(Option(1)->isChecked());
    ASSERT_EQ(Materials()->count(), 2);
    EXPECT_TRUE(Materials()->item(0)->text().startsWith(QLatin1String("CORK")));
    EXPECT_EQ(Caption(), "Select Material : " + (folder.Path() / "user.lby").string());
    Option(0)->click();
    EXPECT_EQ(TheProject().shownLibrary, 1);
    EXPECT_EQ(Materials()->count(), 9);
    Option(1)->click();
    EXPECT_EQ(TheProject().shownLibrary, 2);
    EXPECT_EQ(Materials()->count(), 2);
}

TEST_F(SelectMaterial, UserMaterialsAreRememberedAsSuch) {
    StartWithConstruction();
    LoadUserLibrary();
    Insert("HEMP");
    EXPECT_EQ(TheProject().constructions[1].layers[1].library, 2);
    EXPECT_TRUE(TheProject().userLibraryNeeded);
}

TEST_F(SelectMaterial, LoadingAUserLibraryThatIsInUseWarnsFirst) {
    StartWithConstruction();
    LoadUserLibrary();
    Insert("HEMP");
    Answer("OK");
    CancelPrompt();
    Choose("LoadMaterials");
    EXPECT_EQ(boxes[1].text, "The user material file is being used, make sure the\n"
                             "new user file has all the current materials.");
    EXPECT_EQ(boxes[1].title, "The user material file is in use");
    EXPECT_EQ(boxes[2].title, "Open user material file");
    EXPECT_TRUE(Option(1)->isEnabled());
}

TEST_F(SelectMaterial, AWrongUserLibraryGoesBackToTheStandardOne) {
    StartWithConstruction();
    ChooseFile(folder.Write("wrong.lby", "12 HEMP 0.04 40 1600\r\n"));
    Answer("OK");
    Choose("LoadMaterials");
    EXPECT_EQ(LastBox().text, "User material file is incorrect version");
    EXPECT_TRUE(Option(0)->isChecked());
    EXPECT_FALSE(Option(1)->isEnabled());
    EXPECT_EQ(TheProject().shownLibrary, 1);
    EXPECT_EQ(Materials()->count(), 9);
}

TEST_F(SelectMaterial, ACancelledPromptKeepsTheLibrary) {
    StartWithConstruction();
    CancelPrompt();
    Choose("LoadStandard");
    EXPECT_EQ(LastBox().title, "Open standard material file");
    EXPECT_EQ(Materials()->count(), 9);
    EXPECT_EQ(TheProject().standardLibraryFile, library);
}

TEST_F(SelectMaterial, AnotherStandardLibraryCanBeLoaded) {
    StartWithConstruction();
    Area().SetHidden(UValueMDI::dialogId, true);
    ChooseFile(folder.Write("other.lby", "1'WOOD' 0.12 500 1600\r\n"));
    Choose("LoadStandard");
    EXPECT_EQ(Materials()->count(), 7);
    EXPECT_FALSE(Area().IsHidden(UValueMDI::dialogId));
    EXPECT_EQ(Caption(), "Select Material : " + (folder.Path() / "other.lby").string());
}

TEST_F(SelectMaterial, IsCaptionedAsBeforeWhenNoOtherLibraryWasLoaded) {
    StartWithConstruction();
    CancelPrompt();
    Choose("LoadStandard");
    EXPECT_EQ(Caption(), "Select Material : " + library);
    const std::string pipe = (folder.Path() / "pipe.lby").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    ChooseFile(pipe);
    Answer("OK");
    Choose("LoadStandard");
    EXPECT_EQ(LastBox().text, "Standard material file error 75 occurred.");
    EXPECT_EQ(Caption(), "Select Material : " + library);
}

TEST_F(SelectMaterial, DoubleClickInsertsBeforeTheCurrentLayer) {
    StartWithConstruction();
    for (const char* name : {"PLASTER", "FACE BRICK"}) {
        MainWindowTest::SelectMaterial(name);
        const QPoint place = LinePosition(Materials(), Materials()->currentRow());
        QTest::mouseDClick(Materials()->viewport(), Qt::LeftButton, {}, place);
    }
    EXPECT_THAT(LayersShown(1), ElementsAre("FACE BRICK", "PLASTER")) << "each before the last";
    EXPECT_TRUE(TheProject().changed);
}

TEST_F(SelectMaterial, OneDoubleClickInsertsOneLayer) {
    StartWithConstruction();
    MainWindowTest::SelectMaterial("PLASTER");
    const QPoint place = LinePosition(Materials(), Materials()->currentRow());
    QTest::mouseClick(Materials()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(Materials()->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(List(1)->count(), 1);
    Press(Qt::Key_Return);
    EXPECT_EQ(List(1)->count(), 2);
}

TEST_F(SelectMaterial, DoubleClickBelowTheLastLineDoesNothing) {
    StartWithConstruction();
    LoadUserLibrary();
    FillClipboard();
    QTest::mouseDClick(Materials()->viewport(), Qt::LeftButton, {}, QPoint(30, 55));
    EXPECT_EQ(List(1)->count(), 0);
    EXPECT_EQ(Clip(1).name, "OLD");
}

TEST_F(SelectMaterial, TakingAMaterialReplacesTheWholeClipboard) {
    StartWithConstruction();
    FillClipboard();
    MainWindowTest::SelectMaterial("PLASTER");
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clip(1).name, "PLASTER");
    EXPECT_EQ(Clip(1).absorption, 0);
    EXPECT_EQ(Clip(1).library, 1);
    EXPECT_EQ(Clip(2).name, "");
    EXPECT_EQ(Clip(3).name, "");
    EXPECT_EQ(List(1)->count(), 0) << "copied only";
    FillClipboard();
    Press(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(Clip(1).name, "PLASTER");
    EXPECT_EQ(Clip(3).name, "");
}

TEST_F(SelectMaterial, EditCopyKeepsTheAbsorptionAndTheLaterEntries) {
    StartWithConstruction();
    FillClipboard();
    MainWindowTest::SelectMaterial("PLASTER");
    Choose("Edit_Copy");
    EXPECT_EQ(Clip(1).name, "PLASTER");
    EXPECT_EQ(Clip(1).absorption, 0.5F);
    EXPECT_EQ(Clip(2).name, "");
    EXPECT_EQ(Clip(3).name, "OLD");
}

TEST_F(SelectMaterial, FurtherModifiersMakeTheCopyKeysMeaningless) {
    StartWithConstruction();
    FillClipboard();
    MainWindowTest::SelectMaterial("PLASTER");
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    Press(Qt::Key_Insert, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(Clip(1).name, "OLD");
}

TEST_F(SelectMaterial, EnterInsertsWhateverModifiersAreHeld) {
    StartWithConstruction();
    MainWindowTest::SelectMaterial("PLASTER");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    Press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(List(1)->count(), 3);
}

TEST_F(SelectMaterial, EnterHeldDownInsertsOnce) {
    StartWithConstruction();
    MainWindowTest::SelectMaterial("PLASTER");
    QTest::keyPress(Materials(), Qt::Key_Return);
    for (int i = 0; i < 5; ++i) {
        QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, {}, QString(), true);
        QApplication::sendEvent(Materials(), &again);
    }
    EXPECT_EQ(List(1)->count(), 1);
}

TEST_F(SelectMaterial, NothingSelectedInsertsNothing) {
    StartWithConstruction();
    FillClipboard();
    Area().Activate(UValueMDI::dialogId);
    EXPECT_THAT(Materials()->selectedItems(), IsEmpty());
    Press(Qt::Key_Return);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(List(1)->count(), 0);
    EXPECT_EQ(Clip(1).name, "OLD");
}

TEST_F(SelectMaterial, LettersFindAMaterial) {
    StartWithConstruction();
    Area().Activate(UValueMDI::dialogId);
    Press(Qt::Key_P);
    EXPECT_EQ(TheProject().selectedMaterial, 9);
    Press(Qt::Key_Return);
    EXPECT_THAT(LayersShown(1), ElementsAre("PLASTER"));
}

TEST_F(SelectMaterial, AFullConstructionTakesNothingButTheClipboardIsFilled) {
    StartWithConstruction();
    for (int i = 0; i < 15; ++i)
        Insert("PLASTER");
    TheProject().changed = false;
    Insert("FACE BRICK");
    EXPECT_EQ(List(1)->count(), 15);
    EXPECT_EQ(Clip(1).name, "FACE BRICK");
    EXPECT_FALSE(TheProject().changed);
}

TEST_F(SelectMaterial, WithNoConstructionTheClipboardIsFilledAllTheSame) {
    StartWithConstruction();
    Choose("CloseUValue");
    TheProject().changed = false;
    Insert("PLASTER");
    EXPECT_EQ(Clip(1).name, "PLASTER");
    EXPECT_FALSE(TheProject().changed);
    EXPECT_EQ(LayerNames(TheProject(), 1), "");
}

TEST_F(SelectMaterial, ATrembleWhileClickingLeavesTheClipboardAlone) {
    StartWithConstruction();
    FillClipboard();
    const QPoint place = LinePosition(Materials(), 1);
    QTest::mousePress(Materials()->viewport(), Qt::LeftButton, {}, place);
    MoveMouse(Materials(), place + QPoint(2, 1));
    EXPECT_EQ(Clip(1).name, "OLD");
    StartDrag(Materials(), 1);
    EXPECT_NE(Clip(1).name, "OLD");
}

TEST_F(SelectMaterial, ADragWithNothingSelectedCarriesTheOldClipboard) {
    StartWithConstruction();
    LoadUserLibrary();
    FillClipboard();
    QTest::mousePress(Materials()->viewport(), Qt::LeftButton, {}, QPoint(30, 55));
    MoveMouse(Materials(), QPoint(90, 55));
    EXPECT_EQ(Clip(1).name, "OLD");
    EXPECT_FALSE(Picture(3).isNull()) << "the label of the row";
}

TEST_F(SelectMaterial, TheDragLabelIsThatOfTheRowAndShowsTheName) {
    StartWithConstruction();
    Materials()->scrollToTop();
    StartDrag(Materials(), 1);
    EXPECT_GE(
        Picture(1).width(),
        QFontMetrics(Materials()->font()).horizontalAdvance(QString::fromStdString(Clip(1).name)));
    EXPECT_TRUE(Picture(0).isNull());
}

TEST_F(SelectMaterial, TheDragLabelsKeepTheirCaptions) {
    StartWithConstruction();
    Materials()->scrollToTop();
    StartDrag(Materials(), 1);
    for (const char* image : {"Label2_0", "Label2_1", "Label2_2", "Label2_3"})
        EXPECT_EQ(LabelText(image), " &Name   of     component");
}

TEST_F(SelectMaterial, NamesInTheDragPictureAreNoMarkup) {
    StartWithConstruction();
    TheProject().standardLibrary[9].name = "<b>A&B</b>";
    program->ShowProject();
    Materials()->scrollToBottom();
    StartDrag(Materials(), 8);
    EXPECT_GE(Picture(3).width(),
              QFontMetrics(Materials()->font()).horizontalAdvance(QStringLiteral("<b>A&B</b>")));
}

TEST_F(SelectMaterial, TheCloseBoxHidesItAndTheWindowMenuBringsItBack) {
    StartWithConstruction();
    Area().Activate(UValueMDI::dialogId);
    auto* frame = program->Dialog().parentWidget();
    QTest::mouseClick(frame->findChild<QToolButton*>(QStringLiteral("CloseButton")),
                      Qt::LeftButton);
    EXPECT_TRUE(Area().IsHidden(UValueMDI::dialogId));
    EXPECT_FALSE(frame->isVisible());
    EXPECT_FALSE(TheProject().dialogActive);
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_EQ(Captions("Winmenu").back(), "&2 Select Material : " + library);
    Menu("Winmenu")->actions().last()->trigger();
    EXPECT_TRUE(frame->isVisible());
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    EXPECT_TRUE(TheProject().dialogActive);
}

TEST_F(SelectMaterial, ANewConstructionBringsItBackWithoutActivatingIt) {
    StartWithConstruction();
    Area().SetHidden(UValueMDI::dialogId, true);
    Choose("NewUValue");
    EXPECT_FALSE(Area().IsHidden(UValueMDI::dialogId));
    EXPECT_EQ(Area().Active(), 2);
}

TEST_F(SelectMaterial, IsNotActiveWhileMinimised) {
    StartWithConstruction();
    Area().Activate(UValueMDI::dialogId);
    auto* frame = program->Dialog().parentWidget();
    auto* minimise = frame->findChild<QToolButton*>(QStringLiteral("MinimiseButton"));
    QTest::mouseClick(minimise, Qt::LeftButton);
    EXPECT_FALSE(TheProject().dialogActive);
    EXPECT_EQ(Area().Active(), 1);
    QTest::mouseClick(minimise, Qt::LeftButton);
    EXPECT_TRUE(TheProject().dialogActive);
}

TEST_F(SelectMaterial, StaysActiveWhileABoxIsInFront) {
    StartWithConstruction();
    Area().Activate(UValueMDI::dialogId);
    InBox([this](QWidget&) { EXPECT_TRUE(TheProject().dialogActive); });
    Choose("HelpAbout");
    EXPECT_TRUE(TheProject().dialogActive);
}

/// The material list with the keyboard in it.
class TypeToFind : public SelectMaterial {
protected:
    void StartInList() {
        StartWithConstruction();
        Area().Activate(UValueMDI::dialogId);
        TakeKeyboard(*program);
        Materials()->setFocus();
    }
    std::string Selected() {
        return Materials()->currentItem()->text().left(33).trimmed().toStdString();
    }
    int TopLine() { return dynamic_cast<MaterialList*>(Materials())->TopLine(); }
    std::string Said() { return program->statusBar()->currentMessage().toStdString(); }
};

TEST_F(TypeToFind, LettersLeadToANameOnTheFirstVisibleRow) {
    StartInList();
    const std::string name = Materials()->item(3)->text().left(33).trimmed().toStdString();
    const std::string typed = QString::fromStdString(name).toLower().toStdString();
    Type(typed.c_str());
    EXPECT_EQ(Selected(), name);
    EXPECT_EQ(TopLine(), 3);
    EXPECT_EQ(Said(), "Search: " + typed);
}

TEST_F(TypeToFind, NamesThatOnlyContainTheLettersComeNext) {
    StartInList();
    Type("brick");
    EXPECT_EQ(Selected(), "FACE BRICK");
    Press(Qt::Key_Return);
    EXPECT_EQ(LayerNames(TheProject(), 1), "FACE BRICK");
}

TEST_F(TypeToFind, WhatIsNotFoundIsSaidAndCanBeTakenBack) {
    StartInList();
    Type("plax");
    EXPECT_EQ(Said(), "Search: plax - no such material");
    EXPECT_EQ(Selected(), "PLASTER");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Said(), "Search: pla");
}

TEST_F(TypeToFind, APauseBeginsAnotherSearch) {
    StartInList();
    Type("pl");
    ASSERT_TRUE(QTest::qWaitFor([this] { return Said().rfind("Search", 0) != 0; }, 10'000));
    Type("f");
    EXPECT_EQ(Selected(), "FACE BRICK");
    EXPECT_EQ(Said(), "Search: f");
}

TEST_F(TypeToFind, TheListBeginsAtItsFirstLineAfterALoadASwitchAndASort) {
    StartInList();
    Materials()->scrollToBottom();
    ASSERT_GT(TopLine(), 0);
    Choose("CondSort");
    EXPECT_EQ(TopLine(), 0);
    Materials()->scrollToBottom();
    LoadUserLibrary();
    EXPECT_EQ(TopLine(), 0);
    Option(0)->click();
    Materials()->scrollToBottom();
    Option(1)->click();
    Option(0)->click();
    EXPECT_EQ(TopLine(), 0);
}

TEST_F(TypeToFind, AfterASwitchByKeysTypingGoesToTheList) {
    StartInList();
    LoadUserLibrary();
    Area().Activate(UValueMDI::dialogId);
    Press(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Focus(), "UValueList");
    Press(Qt::Key_U, Qt::AltModifier);
    Type("c");
    EXPECT_EQ(Selected(), "CORK");
}

} // namespace
} // namespace strativo
