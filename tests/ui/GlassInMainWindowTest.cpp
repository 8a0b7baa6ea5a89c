#include "MainWindowTest.h"
#include "edit/GlassTypes.h"
#include "ui/WINFORM.h"
#include "ui/WindowArea.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GlassInMainWindow : public MainWindowTest {
protected:
    /// Starts with a type "CLEAR" and opens the glass types window.
    void Open() {
        Start();
        AddGlassType(TheProject(), "CLEAR");
        Choose("EditWin");
    }

    WinForm* Glass() { return program->findChild<WinForm*>(); }
    QListWidget* List() { return Glass()->findChild<QListWidget*>(QStringLiteral("WinList")); }
    QPushButton* Button(const char* name) {
        return Glass()->findChild<QPushButton*>(QLatin1String(name));
    }
    std::vector<std::string> Listed() {
        std::vector<std::string> names;
        for (int row = 0; row < List()->count(); ++row)
            names.push_back(List()->item(row)->text().toStdString());
        return names;
    }
    /// Imports a type of that name by the main menu.
    void Import(const std::string& name) {
        ChooseFile(folder.Write(name + ".con", "!WINDOW = '" + name + "'\n!TRANS\n1\n!END\n"));
        Choose("ImportGlass");
    }
};

TEST_F(GlassInMainWindow, OpensInFrontWithTheFocusInItsList) {
    Open();
    EXPECT_EQ(Area().Active(), UValueMDI::glassId);
    EXPECT_EQ(Area().Caption(UValueMDI::glassId), QStringLiteral("GlassTypes"));
    EXPECT_THAT(Listed(), ElementsAre("CLEAR"));
    EXPECT_EQ(Focus(), "WinList");
}

TEST_F(GlassInMainWindow, OpensInFrontOfSelectMaterialInASmallMainWindow) {
    Start();
    Choose("NewUValue");
    program->resize(560, 420);
    Choose("EditWin");
    auto* close = Button("Closebut");
    const QPoint middle = close->mapTo(program.get(), close->rect().center());
    const QWidget* dialog = FindInDialog("UValueList")->parentWidget()->parentWidget();
    ASSERT_TRUE(QRect(dialog->mapTo(program.get(), QPoint()), dialog->size()).contains(middle));
    EXPECT_EQ(program->childAt(middle), close);
}

TEST_F(GlassInMainWindow, RemoveConstructionIsDisabledWhileItIsActive) {
    Start();
    Choose("NewUValue");
    EXPECT_TRUE(IsEnabled("CloseUValue"));
    Choose("EditWin");
    EXPECT_FALSE(IsEnabled("CloseUValue"));
}

TEST_F(GlassInMainWindow, TheLoadButtonShowsImportedTypesAtOnce) {
    Open();
    ChooseFile(folder.Write("own.con", "!WINDOW = 'OWN'\n!TRANS\n1\n!END\n"));
    Button("WFLoad")->click();
    EXPECT_THAT(Listed(), ElementsAre("CLEAR", "OWN"));
}

TEST_F(GlassInMainWindow, TheMenusImportIsShownWhenTheWindowIsChosenAgain) {
    Open();
    Import("MENU");
    Choose("EditWin");
    EXPECT_THAT(Listed(), ElementsAre("CLEAR", "MENU"));
}

TEST_F(GlassInMainWindow, TheMenusImportIsShownWhenTheWindowIsActivatedAgain) {
    Open();
    Choose("NewUValue");
    Import("MENU");
    EXPECT_THAT(Listed(), ElementsAre("CLEAR"));
    Area().Activate(UValueMDI::glassId);
    EXPECT_THAT(Listed(), ElementsAre("CLEAR", "MENU"));
}

TEST_F(GlassInMainWindow, ANewConstructionFileEmptiesTheList) {
    Open();
    ClickLine(List(), 0);
    Choose("NewProject");
    EXPECT_THAT(Listed(), IsEmpty());
    EXPECT_FALSE(Button("EditBut")->isEnabled());
}

TEST_F(GlassInMainWindow, ChosenAgainItComesToTheFrontRestored) {
    Open();
    Choose("NewUValue");
    Area().SetMinimised(UValueMDI::glassId, true);
    Choose("EditWin");
    EXPECT_FALSE(Area().IsMinimised(UValueMDI::glassId));
    EXPECT_EQ(Area().Active(), UValueMDI::glassId);
    EXPECT_EQ(program->findChildren<WinForm*>().size(), 1);
}

TEST_F(GlassInMainWindow, AnotherWindowsActivationDisablesEditAndDelete) {
    Open();
    ClickLine(List(), 0);
    EXPECT_TRUE(Button("DelBut")->isEnabled());
    Choose("NewUValue");
    EXPECT_FALSE(Button("EditBut")->isEnabled());
    EXPECT_FALSE(Button("DelBut")->isEnabled());
}

TEST_F(GlassInMainWindow, TakesTheKeyboardBackThoughItsLastButtonIsDisabled) {
    Open();
    ClickLine(List(), 0);
    Button("EditBut")->setFocus();
    Choose("NewUValue");
    Area().Activate(UValueMDI::glassId);
    EXPECT_EQ(Focus(), "WinList");
    EXPECT_TRUE(Button("EditBut")->isEnabled()) << "the entry is still selected";
}

TEST_F(GlassInMainWindow, ComingBackFromAnotherWindowTheSelectedEntryCanBeEdited) {
    Open();
    ClickLine(List(), 0);
    Choose("NewUValue");
    ASSERT_FALSE(Button("EditBut")->isEnabled());
    List()->setFocus();
    std::string edited;
    InBox([&](QWidget& editor) {
        edited = editor.findChild<QLineEdit*>(QStringLiteral("GlassText"))->text().toStdString();
        editor.close();
    });
    QTest::mouseClick(Button("EditBut"), Qt::LeftButton);
    EXPECT_EQ(edited, "CLEAR");
}

TEST_F(GlassInMainWindow, AddStartsInTheNameOfTheNewType) {
    Open();
    InBox([](QWidget& editor) {
        EXPECT_EQ(editor.windowTitle(), QStringLiteral("Glass Properties"));
        editor.findChild<QLineEdit*>(QStringLiteral("GlassText"))->setText(QStringLiteral("NEW"));
        editor.findChild<QPushButton*>(QStringLiteral("OkBut"))->click();
    });
    Button("Addbut")->click();
    EXPECT_THAT(Listed(), ElementsAre("CLEAR", "NEW"));
    EXPECT_TRUE(IsEnabled("SaveProject"));
}

TEST_F(GlassInMainWindow, DeleteAsksInABoxWhoseNoLeavesTheEntrySelected) {
    Open();
    ClickLine(List(), 0);
    Answer("No");
    Button("DelBut")->click();
    EXPECT_EQ(LastBox().title, "Delete Window Type");
    EXPECT_EQ(LastBox().text, "Do you want to delete this window type?");
    EXPECT_TRUE(Button("DelBut")->isEnabled());
    EXPECT_THAT(Listed(), ElementsAre("CLEAR"));
}

TEST_F(GlassInMainWindow, AnAccessKeyAnswersItsBoxBeforeTheNextKey) {
    Open();
    ClickLine(List(), 0);
    bool isAnswered = false;
    InBox([&](QWidget& box) {
        QTest::keyClick(&box, Qt::Key_Y, Qt::AltModifier);
        isAnswered = !box.isVisible();
    });
    Button("DelBut")->click();
    EXPECT_TRUE(isAnswered) << "without waiting for anything";
    EXPECT_THAT(Listed(), IsEmpty());
}

TEST_F(GlassInMainWindow, CloseClosesItAndMakesTheNextWindowActive) {
    Start();
    Choose("NewUValue");
    Choose("EditWin");
    Button("Closebut")->click();
    EXPECT_FALSE(Area().Has(UValueMDI::glassId));
    EXPECT_EQ(Area().Active(), 1);
}

} // namespace
} // namespace strativo
