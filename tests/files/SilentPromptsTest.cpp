#include "files/SilentPrompts.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(SilentPrompts, RefusesEveryQuestionAndPrompt) {
    SilentPrompts prompts;
    EXPECT_EQ(prompts.ShowMessage(YesNoQuestion("Save?", "")), Answer::cancel);
    EXPECT_EQ(prompts.AskOpenFile({}), std::nullopt);
    EXPECT_EQ(prompts.AskSaveFile({}), std::nullopt);
    EXPECT_THROW(prompts.EndProgram(), ProgramEnd);
}

TEST(SilentPrompts, TakesEveryOtherCall) {
    SilentPrompts prompts;
    EXPECT_NO_THROW({
        prompts.Beep();
        prompts.OpenConstructionWindow(1);
        prompts.CloseConstructionWindow(1);
        prompts.RefreshConstructionWindow(1);
        prompts.ActivateConstructionWindow(1);
        prompts.RefreshMaterialList();
        prompts.ShowMaterialDialog();
        prompts.EnableMatOption(1, true);
        prompts.SelectMatOption(1);
        prompts.RefreshGlassTypeList();
        prompts.ShowProgress(1, 2);
        prompts.ShowHelpContents();
        prompts.QuitHelp();
    });
}

} // namespace
} // namespace strativo
