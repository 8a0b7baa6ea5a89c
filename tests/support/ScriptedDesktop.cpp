#include "support/ScriptedDesktop.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace strativo {

ScriptedDesktop::~ScriptedDesktop() {
    EXPECT_TRUE(answers.empty()) << answers.size() << " scripted answers were not asked for";
    EXPECT_TRUE(filesToOpen.empty()) << "not asked for: " << filesToOpen.front();
    EXPECT_TRUE(filesToSave.empty()) << "not asked for: " << filesToSave.front();
}

ScriptedDesktop& ScriptedDesktop::Answers(Answer answer) {
    answers.push_back(answer);
    return *this;
}

ScriptedDesktop& ScriptedDesktop::OpensFile(const std::string& path) {
    filesToOpen.push_back(path);
    return *this;
}

ScriptedDesktop& ScriptedDesktop::SavesFile(const std::string& path) {
    filesToSave.push_back(path);
    return *this;
}

Answer ScriptedDesktop::ShowMessage(const Message& message) {
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

std::optional<std::string> ScriptedDesktop::TakeFile(std::deque<std::string>& files,
                                                     const FilePrompt& prompt) {
    prompts.push_back(prompt);
    if (files.empty()) {
        ADD_FAILURE() << "unexpected prompt: " << prompt.title;
        return std::nullopt;
    }
    const std::string path = files.front();
    files.pop_front();
    return path.empty() ? std::nullopt : std::optional(path);
}

std::optional<std::string> ScriptedDesktop::AskOpenFile(const FilePrompt& prompt) {
    calls.push_back("AskOpen " + prompt.title);
    return TakeFile(filesToOpen, prompt);
}

std::optional<std::string> ScriptedDesktop::AskSaveFile(const FilePrompt& prompt) {
    calls.push_back("AskSave " + prompt.title);
    return TakeFile(filesToSave, prompt);
}

void ScriptedDesktop::Beep() {
    calls.emplace_back("Beep");
}

void ScriptedDesktop::OpenConstructionWindow(int number) {
    calls.push_back("Open " + std::to_string(number));
}

void ScriptedDesktop::CloseConstructionWindow(int number) {
    calls.push_back("Close " + std::to_string(number));
}

void ScriptedDesktop::RefreshConstructionWindow(int number) {
    calls.push_back("Refresh " + std::to_string(number));
}

void ScriptedDesktop::ActivateConstructionWindow(int number) {
    calls.push_back("Activate " + std::to_string(number));
}

void ScriptedDesktop::RefreshMaterialList() {
    calls.emplace_back("RefreshMaterialList");
}

void ScriptedDesktop::ShowMaterialDialog() {
    calls.emplace_back("ShowMaterialDialog");
}

void ScriptedDesktop::EnableMatOption(int index, bool enabled) {
    calls.push_back("EnableOption " + std::to_string(index) + (enabled ? " 1" : " 0"));
}

void ScriptedDesktop::SelectMatOption(int index) {
    calls.push_back("SelectOption " + std::to_string(index));
}

void ScriptedDesktop::RefreshGlassTypeList() {
    calls.emplace_back("RefreshGlassTypeList");
}

void ScriptedDesktop::ShowProgress(std::size_t done, std::size_t total) {
    EXPECT_LE(done, total);
}

void ScriptedDesktop::ShowHelpContents() {
    calls.emplace_back("ShowHelp");
}

void ScriptedDesktop::QuitHelp() {
    calls.emplace_back("QuitHelp");
}

void ScriptedDesktop::OnProgramEnd() {
    calls.emplace_back("EndProgram");
    ended = true;
}

int ScriptedDesktop::Count(const std::string& call) const {
    return static_cast<int>(std::count(calls.begin(), calls.end(), call));
}

std::vector<std::string> ScriptedDesktop::Texts() const {
    std::vector<std::string> texts;
    for (const Message& message : messages)
        texts.push_back(message.text);
    return texts;
}

} // namespace strativo
