#pragma once

#include "fuzz/FuzzBytes.h"
#include "port/Desktop.h"

namespace strativo::fuzz {

/// A desktop without a user: questions are answered from the input, prompts are cancelled.
class FuzzPrompts : public Prompts {
public:
    explicit FuzzPrompts(FuzzBytes& source) : bytes(source) {}

    Answer ShowMessage(const Message& message) override {
        if (message.buttons == Buttons::ok)
            return Answer::ok;
        constexpr Answer answers[] = {Answer::yes, Answer::no, Answer::cancel};
        return answers[bytes.Below(message.buttons == Buttons::yesNo ? 2 : 3)];
    }
    std::optional<std::string> AskOpenFile(const FilePrompt&) override { return std::nullopt; }
    std::optional<std::string> AskSaveFile(const FilePrompt&) override { return std::nullopt; }
    void Beep() override { ++beeps; }
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

    int beeps = 0;

protected:
    void OnProgramEnd() override {}

private:
    FuzzBytes& bytes;
};

} // namespace strativo::fuzz
