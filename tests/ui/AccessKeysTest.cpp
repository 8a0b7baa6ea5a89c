#include "MainWindowTest.h"
#include "ui/WindowArea.h"

#include <QComboBox>
#include <QMenu>
#include <QRadioButton>

namespace strativo {
namespace {

/// Alt and a letter, with a user library loaded so that both options can be chosen.
class AccessKeyInWindows : public MainWindowTest {
protected:
    void StartWithBothLibraries() {
        Start();
        Choose("NewUValue");
        ChooseFile(folder.Write("user.lby", "12* HEMP,0.04 40 1600\r\n"));
        Choose("LoadMaterials");
    }

    void PressAlt(Qt::Key key) { Press(key, Qt::AltModifier); }

    bool IsOpen(const char* menu) {
        const bool open = Menu(menu)->isVisible();
        Menu(menu)->close();
        return open;
    }
};

TEST_F(AccessKeyInWindows, MoveTheFocusToTheLabelledFields) {
    StartWithBothLibraries();
    Area().Activate(1);
    const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_C, "NameText"},
                                                    {Qt::Key_Y, "TypeCombo"},
                                                    {Qt::Key_N, "Construction"},
                                                    {Qt::Key_T, "EditThick"}};
    for (const auto& [key, control] : keys) {
        PressAlt(key);
        EXPECT_EQ(Focus(), control);
    }
}

TEST_F(AccessKeyInWindows, ReachTheAbsorptionOnlyWhereItIsShown) {
    StartWithBothLibraries();
    Area().Activate(1);
    PressAlt(Qt::Key_A);
    EXPECT_EQ(Focus(), "Construction");
    Find<QComboBox>(1, "TypeCombo")->setFocus();
    Press(Qt::Key_Down);
    PressAlt(Qt::Key_A);
    EXPECT_EQ(Focus(), "AbsorpText");
}

TEST_F(AccessKeyInWindows, ClickTheOptionOfTheActiveDialogInsteadOfOpeningAMenu) {
    StartWithBothLibraries();
    Area().Activate(UValueMDI::dialogId);
    PressAlt(Qt::Key_S);
    EXPECT_FALSE(IsOpen("Sortmenu"));
    EXPECT_EQ(TheProject().shownLibrary, 1);
    PressAlt(Qt::Key_U);
    EXPECT_EQ(TheProject().shownLibrary, 2);
    PressAlt(Qt::Key_N);
    EXPECT_EQ(Focus(), "UValueList");
}

TEST_F(AccessKeyInWindows, OpenTheMenuWhenAnotherWindowIsActive) {
    StartWithBothLibraries();
    Area().Activate(1);
    PressAlt(Qt::Key_S);
    EXPECT_TRUE(IsOpen("Sortmenu"));
    EXPECT_EQ(TheProject().shownLibrary, 2);
    EXPECT_EQ(Area().Active(), 1);
}

TEST_F(AccessKeyInWindows, OpenTheMenuWhenTheControlIsDisabled) {
    StartWithBothLibraries();
    Area().Activate(UValueMDI::dialogId);
    FindInDialog<QRadioButton>("MatOption_0")->setEnabled(false);
    PressAlt(Qt::Key_S);
    EXPECT_TRUE(IsOpen("Sortmenu"));
}

TEST_F(AccessKeyInWindows, OpenEveryMenu) {
    StartWithBothLibraries();
    Area().Activate(1);
    const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_F, "Filemenu"},
                                                    {Qt::Key_E, "Editmenu"},
                                                    {Qt::Key_S, "Sortmenu"},
                                                    {Qt::Key_W, "Winmenu"},
                                                    {Qt::Key_H, "HelpMenu"}};
    for (const auto& [key, menu] : keys) {
        PressAlt(key);
        ASSERT_NE(Menu(menu)->activeAction(), nullptr) << menu;
        EXPECT_TRUE(Menu(menu)->activeAction()->isEnabled()) << menu;
        EXPECT_TRUE(IsOpen(menu)) << menu;
    }
}

TEST_F(AccessKeyInWindows, ControlsOfInactiveWindowsAreLeftAlone) {
    StartWithBothLibraries();
    Area().Activate(UValueMDI::dialogId);
    PressAlt(Qt::Key_T);
    EXPECT_EQ(Area().Active(), UValueMDI::dialogId);
    Choose("NewUValue");
    PressAlt(Qt::Key_T);
    EXPECT_EQ(Area().Active(), 2);
    EXPECT_TRUE(Find(2, "EditThick")->hasFocus());
}

TEST_F(AccessKeyInWindows, DoNotReachThroughABox) {
    StartWithBothLibraries();
    Area().Activate(UValueMDI::dialogId);
    InBox([](QWidget& box) { QTest::keyClick(&box, Qt::Key_S, Qt::AltModifier); });
    Choose("HelpAbout");
    EXPECT_EQ(TheProject().shownLibrary, 2);
}

TEST_F(AccessKeyInWindows, DoNotReachFromTheHelpViewer) {
    StartWithBothLibraries();
    Area().Activate(UValueMDI::dialogId);
    program->ShowHelp();
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->objectName() == QLatin1String("HelpViewer"))
            QTest::keyClick(widget, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(TheProject().shownLibrary, 2);
}

} // namespace
} // namespace strativo
