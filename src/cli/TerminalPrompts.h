#pragma once

#include "port/Prompts.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace strativo {

/// The answers to prompts; "" cancels.
struct PromptAnswers {
    std::string standardLibrary;
    std::string userLibrary;
    std::string constructionFile;
};

/// Answers for a user who is not there: messages go to a stream as one line each, questions are
/// answered Yes, and each prompt is answered once, then cancelled.
class TerminalPrompts : public Prompts {
public:
    TerminalPrompts(std::ostream& stream, std::string subjectFile, PromptAnswers promptAnswers);

    /// Names the file that the following messages are about.
    void SetSubject(std::string file) { subject = std::move(file); }
    /// Sets the answer to the next construction file prompt.
    void AnswerConstructionFile(std::string path) { answers.constructionFile = std::move(path); }
    /// Records that the program would have ended.
    void NoteEnd() { ended = true; }
    /// Writes a line about that file, as for a message.
    void Report(const std::string& utf8);

    const std::vector<Message>& Messages() const { return messages; }
    bool Ended() const { return ended; }

    Answer ShowMessage(const Message& message) override;
    std::optional<std::string> AskOpenFile(const FilePrompt& prompt) override;
    std::optional<std::string> AskSaveFile(const FilePrompt& prompt) override;

private:
    std::string& AnswerTo(const FilePrompt& prompt);

    std::ostream& err;
    std::string subject;
    PromptAnswers answers;
    std::vector<Message> messages;
    bool ended = false;
};

} // namespace strativo
