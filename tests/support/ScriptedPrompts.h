#pragma once

#include "port/Prompts.h"

#include <deque>
#include <string>
#include <vector>

namespace strativo {

/// A user for tests: it answers prompts and questions from a script, in order, and records every
/// call. An unexpected prompt or question fails the test, and so does a scripted answer left over.
class ScriptedPrompts : public Prompts {
public:
    ~ScriptedPrompts() override;

    /// Scripts the answer to the next question (a message with Yes/No/Cancel buttons).
    ScriptedPrompts& Answers(Answer answer);
    /// Scripts the next chosen file; the single argument "" is a cancel.
    ScriptedPrompts& OpensFile(const std::string& path);
    ScriptedPrompts& SavesFile(const std::string& path);

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskOpenFile(const FilePrompt& prompt) override;
    std::optional<std::string> AskSaveFile(const FilePrompt& prompt) override;
    void Beep() override;
    void ShowProgress(std::size_t done, std::size_t total) override;
    void ShowHelpContents() override;
    void QuitHelp() override;

    /// Number of recorded calls of that text.
    int Count(const std::string& call) const;
    /// Texts of the messages shown, in order.
    std::vector<std::string> Texts() const;

    /// Every call in order but progress reports: "Beep", "Message TEXT", "AskOpen TITLE" and so on.
    std::vector<std::string> calls;
    std::vector<Message> messages;
    std::vector<FilePrompt> filePrompts;

private:
    std::optional<std::string> TakeFile(std::deque<std::string>& files, const FilePrompt& prompt);

    std::deque<Answer> answers;
    std::deque<std::string> filesToOpen;
    std::deque<std::string> filesToSave;
};

} // namespace strativo
