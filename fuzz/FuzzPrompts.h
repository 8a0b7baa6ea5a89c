#pragma once

#include "fuzz/FuzzBytes.h"
#include "port/Prompts.h"

namespace strativo::fuzz {

/// Without a user: questions are answered from the input, prompts are cancelled.
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

    int beeps = 0;

private:
    FuzzBytes& bytes;
};

} // namespace strativo::fuzz
