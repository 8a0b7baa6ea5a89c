#pragma once

#include "port/Prompts.h"

#include <stdexcept>

namespace strativo {

/// What is measured gives nothing to tell or to ask.
class NoPrompts : public Prompts {
public:
    Answer ShowMessage(const Message& message) override { throw std::runtime_error(message.text); }
    std::optional<std::string> AskOpenFile(const FilePrompt&) override { return std::nullopt; }
    std::optional<std::string> AskSaveFile(const FilePrompt&) override { return std::nullopt; }
};

} // namespace strativo
