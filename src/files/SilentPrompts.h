#pragma once

#include "port/Desktop.h"

namespace strativo {

/// A desktop that shows nothing and refuses everything, for a file that is parsed only to look at
/// what it holds.
class SilentPrompts : public Prompts {
public:
    Answer ShowMessage(const Message&) override { return Answer::cancel; }
    std::optional<std::string> AskOpenFile(const FilePrompt&) override { return std::nullopt; }
    std::optional<std::string> AskSaveFile(const FilePrompt&) override { return std::nullopt; }
    void Beep() override {}
    void OpenConstructionWindow(int) override {}
    void CloseConstructionWindow(int) override {}
    void RefreshConstructionWindow(int) override {}
    void ActivateConstructionWindow(int) override {}
    void RefreshMaterialList() override {}
    void ShowMaterialDialog() override {}
    void EnableMatOption(int, bool) override {}
    void SelectMatOption(int) override {}
    void RefreshGlassTypeList() override {}
    void ShowProgress(std::size_t, std::size_t) override {}
    void ShowHelpContents() override {}
    void QuitHelp() override {}

protected:
    void OnProgramEnd() override {}
};

} // namespace strativo
