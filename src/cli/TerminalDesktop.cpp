#include "cli/TerminalDesktop.h"

#include "cli/TextOutput.h"
#include "files/LibraryLoading.h"

#include <ostream>
#include <utility>

namespace strativo {

TerminalDesktop::TerminalDesktop(std::ostream& stream, std::string subjectFile,
                                 PromptAnswers promptAnswers)
    : err(stream), subject(std::move(subjectFile)), answers(std::move(promptAnswers)) {}

Answer TerminalDesktop::ShowMessage(const Message& message) {
    messages.push_back(message);
    PrintLine(MessageText(message));
    if (message.buttons != Buttons::ok)
        return Answer::yes;
    ++failures;
    messageJustShown = true;
    return Answer::ok;
}

std::optional<std::string> TerminalDesktop::AskOpenFile(const FilePrompt& prompt) {
    const bool asksAboutMessage = std::exchange(messageJustShown, false);
    std::string path = std::exchange(AnswerTo(prompt), "");
    if (path.empty())
        return std::nullopt;
    if (asksAboutMessage)
        --failures;
    return path;
}

std::optional<std::string> TerminalDesktop::AskSaveFile(const FilePrompt&) {
    return std::nullopt;
}

void TerminalDesktop::Report(const std::string& utf8) {
    PrintLine(utf8);
    ++failures;
}

std::string& TerminalDesktop::AnswerTo(const FilePrompt& prompt) {
    if (prompt.title == standardLibraryPrompt)
        return answers.standardLibrary;
    return prompt.title == userLibraryPrompt ? answers.userLibrary : answers.constructionFile;
}

void TerminalDesktop::PrintLine(const std::string& utf8) {
    PrintError(err, PathToUtf8(subject) + ": " + utf8);
}

} // namespace strativo
