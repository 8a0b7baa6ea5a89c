#pragma once

#include "port/Prompts.h"

#include <QString>

#include <string>

namespace strativo {

class UValueMDI;

/// Asks and tells in Qt's boxes. The windows behind a box are brought up to date first.
class QtPrompts : public Prompts {
public:
    explicit QtPrompts(UValueMDI& mainWindow) : window(mainWindow) {}

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskOpenFile(const FilePrompt& prompt) override;
    std::optional<std::string> AskSaveFile(const FilePrompt& prompt) override;
    void Beep() override;
    void ShowProgress(std::size_t done, std::size_t total) override;
    void ShowHelpContents() override;
    void QuitHelp() override;

private:
    std::optional<std::string> AskFile(const FilePrompt& prompt, bool save);

    UValueMDI& window;
};

} // namespace strativo
