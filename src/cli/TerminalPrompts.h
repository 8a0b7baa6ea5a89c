#pragma once

#include "port/Prompts.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace strativo {

/// What prompts are answered with; "" cancels.
struct PromptAnswers {
    std::string standardLibrary;
    std::string userLibrary;
    std::string constructionFile;
};

/// Nobody is there to answer: messages go to a stream as one line each, questions are
/// answered Yes, and each prompt is answered once, then cancelled.
class TerminalPrompts : public Prompts {
public:
    TerminalPrompts(std::ostream& stream, std::string subjectFile, PromptAnswers promptAnswers);

    /// Names the file that the messages to come are about.
    void SetSubject(std::string file) { subject = std::move(file); }
    /// Answers a construction file prompt to come.
    void AnswerConstructionFile(std::string path) { answers.constructionFile = std::move(path); }
    /// The program would have ended here.
    void NoteEnd() { ended = true; }
    /// Writes a line about the subject, as for a message.
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
