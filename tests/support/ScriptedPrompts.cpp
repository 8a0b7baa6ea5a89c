#include "support/ScriptedPrompts.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace strativo {

ScriptedPrompts::~ScriptedPrompts() {
    EXPECT_TRUE(answers.empty()) << answers.size() << " scripted answers were not asked for";
    EXPECT_TRUE(filesToOpen.empty()) << "not asked for: " << filesToOpen.front();
    EXPECT_TRUE(filesToSave.empty()) << "not asked for: " << filesToSave.front();
}

ScriptedPrompts& ScriptedPrompts::Answers(Answer answer) {
    answers.push_back(answer);
    return *this;
}

ScriptedPrompts& ScriptedPrompts::OpensFile(const std::string& path) {
    filesToOpen.push_back(path);
    return *this;
}

ScriptedPrompts& ScriptedPrompts::SavesFile(const std::string& path) {
    filesToSave.push_back(path);
    return *this;
}

Answer ScriptedPrompts::ShowMessage(const Message& message) {
    calls.push_back("Message " + message.text);
    messages.push_back(message);
    if (message.buttons == Buttons::ok)
        return Answer::ok;
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected question: " << message.text;
        return Answer::cancel;
    }
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<std::string> ScriptedPrompts::TakeFile(std::deque<std::string>& files,
                                                     const FilePrompt& prompt) {
    filePrompts.push_back(prompt);
    if (files.empty()) {
        ADD_FAILURE() << "unexpected prompt: " << prompt.title;
        return std::nullopt;
    }
    const std::string path = files.front();
    files.pop_front();
    return path.empty() ? std::nullopt : std::optional(path);
}

std::optional<std::string> ScriptedPrompts::AskOpenFile(const FilePrompt& prompt) {
    calls.push_back("AskOpen " + prompt.title);
    return TakeFile(filesToOpen, prompt);
}

std::optional<std::string> ScriptedPrompts::AskSaveFile(const FilePrompt& prompt) {
    calls.push_back("AskSave " + prompt.title);
    return TakeFile(filesToSave, prompt);
}

void ScriptedPrompts::Beep() {
    calls.emplace_back("Beep");
}

void ScriptedPrompts::ShowProgress(std::size_t done, std::size_t total) {
    EXPECT_LE(done, total);
}

void ScriptedPrompts::ShowHelpContents() {
    calls.emplace_back("ShowHelp");
}

void ScriptedPrompts::QuitHelp() {
    calls.emplace_back("QuitHelp");
}

int ScriptedPrompts::Count(const std::string& call) const {
    return static_cast<int>(std::count(calls.begin(), calls.end(), call));
}

std::vector<std::string> ScriptedPrompts::Texts() const {
    std::vector<std::string> texts;
    for (const Message& message : messages)
        texts.push_back(message.text);
    return texts;
}

} // namespace strativo
