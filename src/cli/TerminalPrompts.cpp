#include "cli/TerminalPrompts.h"

#include "cli/TextOutput.h"
#include "files/LibraryLoading.h"

#include <ostream>
#include <utility>

namespace strativo {

TerminalPrompts::TerminalPrompts(std::ostream& stream, std::string subjectFile,
                                 PromptAnswers promptAnswers)
    : err(stream), subject(std::move(subjectFile)), answers(std::move(promptAnswers)) {}

Answer TerminalPrompts::ShowMessage(const Message& message) {
    messages.push_back(message);
    Report(MessageText(message));
    return message.buttons == Buttons::ok ? Answer::ok : Answer::yes;
}

std::optional<std::string> TerminalPrompts::AskOpenFile(const FilePrompt& prompt) {
    std::string path = std::exchange(AnswerTo(prompt), "");
    return path.empty() ? std::nullopt : std::optional(path);
}

std::optional<std::string> TerminalPrompts::AskSaveFile(const FilePrompt&) {
    return std::nullopt;
}

void TerminalPrompts::Report(const std::string& utf8) {
    PrintError(err, PathToUtf8(subject) + ": " + utf8);
}

std::string& TerminalPrompts::AnswerTo(const FilePrompt& prompt) {
    if (prompt.title == standardLibraryPrompt)
        return answers.standardLibrary;
    return prompt.title == userLibraryPrompt ? answers.userLibrary : answers.constructionFile;
}

} // namespace strativo
