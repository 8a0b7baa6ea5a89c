#pragma once

#include "port/Message.h"

#include <cstddef>
#include <optional>
#include <string>

namespace strativo {

/// Thrown to end the program at once, without asking about unsaved changes; caught where an action
/// of the user, or a file of the command line, begins.
struct ProgramEnd {};

/// What the core asks and tells a person: in a window, at a script's terminal, or in a test. Who
/// has no way to tell something leaves it at that.
class Prompts {
public:
    virtual ~Prompts() = default;

    virtual Answer ShowMessage(const Message& message) = 0;
    /// The chosen path, as the file system's bytes; nothing when the user cancelled.
    virtual std::optional<std::string> AskOpenFile(const FilePrompt& prompt) = 0;
    virtual std::optional<std::string> AskSaveFile(const FilePrompt& prompt) = 0;

    virtual void Beep() {}
    /// Called from time to time while a long file is read; done == total at the end.
    virtual void ShowProgress(std::size_t /*done*/, std::size_t /*total*/) {}
    virtual void ShowHelpContents() {}
    virtual void QuitHelp() {}
};

} // namespace strativo
