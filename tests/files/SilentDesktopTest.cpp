#include "files/SilentDesktop.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(SilentDesktop, RefusesEveryQuestionAndPrompt) {
    SilentDesktop desktop;
    EXPECT_EQ(desktop.ShowMessage(YesNoQuestion("Save?", "")), Answer::cancel);
    EXPECT_EQ(desktop.AskOpenFile({}), std::nullopt);
    EXPECT_EQ(desktop.AskSaveFile({}), std::nullopt);
    EXPECT_THROW(desktop.EndProgram(), ProgramEnd);
}

TEST(SilentDesktop, TakesEveryOtherCall) {
    SilentDesktop desktop;
    EXPECT_NO_THROW({
        desktop.Beep();
        desktop.OpenConstructionWindow(1);
        desktop.CloseConstructionWindow(1);
        desktop.RefreshConstructionWindow(1);
        desktop.ActivateConstructionWindow(1);
        desktop.RefreshMaterialList();
        desktop.ShowMaterialDialog();
        desktop.EnableMatOption(1, true);
        desktop.SelectMatOption(1);
        desktop.RefreshGlassTypeList();
        desktop.ShowProgress(1, 2);
        desktop.ShowHelpContents();
        desktop.QuitHelp();
    });
}

} // namespace
} // namespace strativo
