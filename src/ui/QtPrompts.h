#pragma once

#include "port/Desktop.h"

#include <QString>

#include <string>

namespace strativo {

class UValueMDI;

/// The port to the desktop as the Qt windows serve it.
class QtPrompts : public Prompts {
public:
    explicit QtPrompts(UValueMDI& mainWindow) : window(mainWindow) {}

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskOpenFile(const FilePrompt& prompt) override;
    std::optional<std::string> AskSaveFile(const FilePrompt& prompt) override;
    void Beep() override;
    void OpenConstructionWindow(int number) override;
    void CloseConstructionWindow(int number) override;
    void RefreshConstructionWindow(int number) override;
    void ActivateConstructionWindow(int number) override;
    void RefreshMaterialList() override;
    void ShowMaterialDialog() override;
    void EnableMatOption(int index, bool enabled) override;
    void SelectMatOption(int index) override;
    void RefreshGlassTypeList() override;
    void ShowProgress(std::size_t done, std::size_t total) override;
    void ShowHelpContents() override;
    void QuitHelp() override;

protected:
    void OnProgramEnd() override {}

private:
    std::optional<std::string> AskFile(const FilePrompt& prompt, bool save);
    QString StartFolder() const;

    UValueMDI& window;
    QString lastFolder;
};

} // namespace strativo
