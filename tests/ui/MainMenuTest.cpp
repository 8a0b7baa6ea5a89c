#include "MainWindowTest.h"
#include "edit/ConstructionSlots.h"
#include "ui/WindowArea.h"

#include <QMenu>
#include <QMenuBar>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MainMenu : public MainWindowTest {
protected:
    std::vector<std::string> ItemNames(const char* menuName) {
        std::vector<std::string> names;
        for (const QAction* action : Menu(menuName)->actions())
            names.push_back(action->objectName().toStdString());
        return names;
    }
};

TEST_F(MainMenu, HasFiveMenusWithAccessKeys) {
    Start();
    std::vector<std::string> captions;
    for (const QAction* action : program->menuBar()->actions())
        captions.push_back(action->text().toStdString());
    EXPECT_THAT(captions, ElementsAre("&File", "&Edit", "&Sort", "&Window", "&Help"));
    EXPECT_EQ(program->windowTitle(), QStringLiteral("Brevan Strativo V2.1"));
}

TEST_F(MainMenu, FileItemsAreCaptionedLetterForLetter) {
    Start();
    EXPECT_THAT(Captions("Filemenu"),
                ElementsAre("&New construction file", "&Open construction file...",
                            "&Save construction file", "Save construction file &as...", "-",
                            "New &construction", "&Remove construction", "-",
                            "Loa&d standard material file", "&Load user material file", "-",
                            "Import &glass definitions", "-", "E&xit"));
    EXPECT_THAT(ItemNames("Filemenu"),
                ElementsAre("NewProject", "OpenProject", "SaveProject", "SaveProjectAs", "sep1",
                            "NewUValue", "CloseUValue", "sep2", "LoadStandard", "LoadMaterials",
                            "sep3", "ImportGlass", "sep4", "QuitProg"));
}

TEST_F(MainMenu, EditItemsShowTheirKeysInTheCaption) {
    Start();
    EXPECT_THAT(Captions("Editmenu"),
                ElementsAre("Cu&t                   Ctrl+X   ", "&Copy                Ctrl+C",
                            "&Paste               Ctrl+V", "Paste &before    Ctrl+B",
                            "&Delete              Del", "-", "Edit &glass types"));
    EXPECT_THAT(ItemNames("Editmenu"),
                ElementsAre("Edit_Cut", "Edit_Copy", "Edit_Paste", "Edit_PBefore", "Edit_delete",
                            "sep5", "EditWin"));
}

TEST_F(MainMenu, SortItemsAreCaptionedLetterForLetter) {
    Start();
    EXPECT_THAT(Captions("Sortmenu"),
                ElementsAre("&Name", "&Conductivity", "&Density", "&Specific Heat"));
    EXPECT_THAT(ItemNames("Sortmenu"),
                ElementsAre("NameSort", "CondSort", "DensitySort", "HeatSort"));
}

TEST_F(MainMenu, HelpItemsAreCaptionedLetterForLetter) {
    Start();
    EXPECT_THAT(Captions("HelpMenu"), ElementsAre("&Contents", "-", "&About Strativo"));
    EXPECT_THAT(ItemNames("HelpMenu"), ElementsAre("HelpContents", "sep6", "HelpAbout"));
}

TEST_F(MainMenu, NoItemBindsAKey) {
    Start();
    for (const QMenu* menu : program->findChildren<QMenu*>())
        for (const QAction* item : menu->actions())
            EXPECT_TRUE(item->shortcut().isEmpty()) << item->text().toStdString();
}

TEST_F(MainMenu, WindowMenuListsTheWindowsBelowItsItems) {
    Start();
    Choose("NewUValue");
    const auto captions = Captions("Winmenu");
    ASSERT_EQ(captions.size(), 6U);
    EXPECT_EQ(captions[0], "&Cascade");
    EXPECT_EQ(captions[1], "Make all &Icons");
    EXPECT_EQ(captions[2], "&Arrange Icons");
    EXPECT_EQ(captions[3], "-");
    EXPECT_EQ(captions[4], "&1 Construction 1");
    EXPECT_EQ(captions[5], "&2 Select Material : " + library);
}

TEST_F(MainMenu, WindowMenuNumbersNineWindowsAndListsThirty) {
    Start();
    for (int i = 0; i < 40; ++i)
        Choose("NewUValue");
    const auto captions = Captions("Winmenu");
    ASSERT_EQ(captions.size(), 4U + 30U + 1U);
    EXPECT_EQ(captions[12], "&9 Construction 9");
    EXPECT_EQ(captions[13], "Construction 10");
    EXPECT_EQ(captions[32], "Construction 29");
    EXPECT_EQ(captions[33], "Select Material : " + library);
    EXPECT_EQ(captions.back(), "&More windows...");
}

TEST_F(MainMenu, MoreWindowsActivatesTheWindowChosenThere) {
    Start();
    for (int i = 0; i < 40; ++i)
        Choose("NewUValue");
    TheProject().constructions[17].name = "Flat roof";
    Captions("Winmenu");
    InBox([this](QWidget& box) {
        EXPECT_EQ(box.objectName(), QStringLiteral("MoreWindows"));
        EXPECT_EQ(Focus(), "Filter");
        Type("roof");
        Press(Qt::Key_Return);
    });
    Choose("MoreWindows");
    EXPECT_EQ(Area().Active(), 17);
    EXPECT_EQ(TheProject().currentConstruction, 17);
}

TEST_F(MainMenu, WindowMenuDoublesTheAmpersandOfACaption) {
    library = folder.Write("A&B.lby", folder.Read("library/stdmat.lby"));
    folder.Write("settings/Stratv.ini", "[Files]\nStdMat=" + library + "\n");
    Start();
    Choose("NewUValue");
    EXPECT_NE(Captions("Winmenu")[5].find("A&&B.lby"), std::string::npos);
}

TEST_F(MainMenu, ChosenWindowInTheListBecomesActive) {
    Start();
    Choose("NewUValue");
    Choose("NewUValue");
    Captions("Winmenu");
    Menu("Winmenu")->actions().at(4)->trigger();
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_EQ(Focus(), "Construction");
    Captions("Winmenu");
    EXPECT_TRUE(Menu("Winmenu")->actions().at(4)->isChecked());
    EXPECT_FALSE(Menu("Winmenu")->actions().at(5)->isChecked());
}

TEST_F(MainMenu, WindowsNameTheirConstructionInTheStatusTip) {
    Start();
    Choose("NewUValue");
    TheProject().constructions[1].name = "Flat roof, T\xFCr";
    Captions("Winmenu");
    EXPECT_EQ(Menu("Winmenu")->actions().at(4)->statusTip(), QStringLiteral("Flat roof, Tür"));
    EXPECT_EQ(Menu("Winmenu")->actions().at(5)->statusTip(), Area().Caption(UValueMDI::dialogId));
}

TEST_F(MainMenu, AnItemOfAWindowThatIsGoneDoesNothing) {
    Start();
    Choose("NewUValue");
    Choose("NewUValue");
    Captions("Winmenu");
    QAction* item = Menu("Winmenu")->actions().at(4);
    EXPECT_EQ(item->text(), QStringLiteral("&1 Construction 1"));
    RemoveConstruction(TheProject(), 1);
    program->ShowProject();
    item->trigger();
    EXPECT_THAT(boxes, testing::IsEmpty());
}

TEST_F(MainMenu, SaveIsOfferedOnlyForAChangedProject) {
    Start();
    Choose("NewUValue");
    EXPECT_FALSE(IsEnabled("SaveProject")) << "a new construction is no change";
    Insert("PLASTER");
    EXPECT_TRUE(IsEnabled("SaveProject"));
    EXPECT_TRUE(IsEnabled("SaveProjectAs"));
}

TEST_F(MainMenu, RemoveIsOfferedForConstructionWindowsOnly) {
    Start();
    Choose("NewUValue");
    EXPECT_TRUE(IsEnabled("CloseUValue"));
    Choose("EditWin");
    EXPECT_FALSE(IsEnabled("CloseUValue")) << "glass types";
    Area().Activate(UValueMDI::dialogId);
    EXPECT_FALSE(IsEnabled("CloseUValue")) << "dialog";
}

TEST_F(MainMenu, OnlyCopyAppliesInTheDialog) {
    Start();
    Choose("NewUValue");
    Insert("PLASTER");
    EXPECT_TRUE(IsEnabled("Edit_Copy"));
    for (const char* item : {"Edit_Cut", "Edit_Paste", "Edit_PBefore", "Edit_delete"})
        EXPECT_FALSE(IsEnabled(item)) << item;
    EXPECT_TRUE(IsEnabled("EditWin"));
}

TEST_F(MainMenu, LayersBehindAGlassWindowAreOutOfReach) {
    Start();
    Choose("NewUValue");
    Insert("PLASTER");
    Area().Activate(1);
    EXPECT_TRUE(IsEnabled("Edit_delete"));
    Choose("EditWin");
    for (const char* item : {"Edit_Cut", "Edit_Copy", "Edit_delete"})
        EXPECT_FALSE(IsEnabled(item)) << item;
    EXPECT_TRUE(IsEnabled("Edit_Paste"));
    EXPECT_TRUE(IsEnabled("Edit_PBefore"));
}

TEST_F(MainMenu, PastingBehindAGlassWindowBringsTheConstructionToTheFront) {
    Start();
    Choose("NewUValue");
    Insert("PLASTER");
    Choose("EditWin");
    Choose("Edit_Paste");
    EXPECT_EQ(Area().Active(), 1);
    EXPECT_THAT(LayersShown(1), ElementsAre("PLASTER", "PLASTER"));
    EXPECT_EQ(MarkedLayers(TheProject(), 1), std::vector<int>{2});
}

TEST_F(MainMenu, EditItemsWorkOnTheActiveConstruction) {
    Start();
    Choose("NewUValue");
    Insert("PLASTER");
    Insert("FACE BRICK");
    Area().Activate(1);
    ClickLine(List(1), 1);
    Choose("Edit_Copy");
    ClickLine(List(1), 0);
    Choose("Edit_PBefore");
    EXPECT_THAT(LayersShown(1), ElementsAre("PLASTER", "FACE BRICK", "PLASTER"));
    Choose("Edit_Cut");
    EXPECT_THAT(LayersShown(1), ElementsAre("FACE BRICK", "PLASTER"));
    Choose("Edit_delete");
    EXPECT_THAT(LayersShown(1), ElementsAre("PLASTER"));
    Choose("Edit_delete");
    EXPECT_THAT(LayersShown(1), IsEmpty());
    EXPECT_FALSE(IsEnabled("Edit_delete"));
    EXPECT_TRUE(IsEnabled("Edit_Paste")) << "the clipboard is kept";
}

TEST_F(MainMenu, SortsTheShownLibraryAndBringsTheDialogBack) {
    Start();
    Choose("NewUValue");
    Area().SetHidden(UValueMDI::dialogId, true);
    Choose("CondSort");
    EXPECT_FALSE(Area().IsHidden(UValueMDI::dialogId));
    EXPECT_EQ(Area().Active(), 1) << "not activated";
    EXPECT_TRUE(Materials()->item(6)->text().startsWith(QLatin1String("INSULATION")));
    Choose("DensitySort");
    EXPECT_TRUE(Materials()->item(8)->text().startsWith(QLatin1String("FACE BRICK")));
    Choose("HeatSort");
    EXPECT_TRUE(Materials()->item(8)->text().startsWith(QLatin1String("INSULATION")));
    Choose("NameSort");
    EXPECT_TRUE(Materials()->item(8)->text().startsWith(QLatin1String("PLASTER")));
    EXPECT_THAT(Materials()->selectedItems(), IsEmpty());
}

TEST_F(MainMenu, AboutBoxIsModal) {
    Start();
    InBox([](QWidget& box) { EXPECT_TRUE(box.isModal()); });
    Choose("HelpAbout");
    EXPECT_EQ(boxes.size(), 1U);
}

TEST_F(MainMenu, F10OpensTheFileMenu) {
    Start();
    QTest::keyClick(Materials(), Qt::Key_F10);
    EXPECT_EQ(program->menuBar()->activeAction(), program->menuBar()->actions().front());
    Menu("Filemenu")->close();
}

} // namespace
} // namespace strativo
