#pragma once

#include "port/Message.h"

#include <cstddef>
#include <optional>
#include <string>

namespace strativo {

/// Thrown to end the program at once, without asking about unsaved changes; caught where the
/// program's parts are wired together.
struct ProgramEnd {};

/// The core's one way to the world: a window system, a script's terminal, or a test.
class Prompts {
public:
    virtual ~Prompts() = default;

    virtual Answer ShowMessage(const Message& message) = 0;
    /// The chosen path, as the file system's bytes; nothing when the user cancelled.
    virtual std::optional<std::string> AskOpenFile(const FilePrompt& prompt) = 0;
    virtual std::optional<std::string> AskSaveFile(const FilePrompt& prompt) = 0;
    virtual void Beep() = 0;

    virtual void OpenConstructionWindow(int number) = 0;
    virtual void CloseConstructionWindow(int number) = 0;
    /// The construction's layers changed: its list, fields and U-value are to be shown anew.
    virtual void RefreshConstructionWindow(int number) = 0;
    /// Brings the construction's window to the front, with the focus in its list.
    virtual void ActivateConstructionWindow(int number) = 0;

    virtual void RefreshMaterialList() = 0;
    /// Brings the Select Material dialog back where it was hidden, without activating it.
    virtual void ShowMaterialDialog() = 0;
    virtual void EnableMatOption(int index, bool enabled) = 0;
    /// Marks the option; its click handler does not run.
    virtual void SelectMatOption(int index) = 0;
    virtual void RefreshGlassTypeList() = 0;

    /// Called now and then while a long file is read; done == total at its end.
    virtual void ShowProgress(std::size_t done, std::size_t total) = 0;
    virtual void ShowHelpContents() = 0;
    virtual void QuitHelp() = 0;

    /// Ends the program at once.
    [[noreturn]] void EndProgram() {
        OnProgramEnd();
        throw ProgramEnd();
    }

protected:
    virtual void OnProgramEnd() = 0;
};

} // namespace strativo
