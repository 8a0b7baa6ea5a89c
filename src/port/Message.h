#pragma once

#include <string>

namespace strativo {

enum class Buttons { ok, yesNo, yesNoCancel };
enum class Icon { none, question, exclamation };
enum class Answer { ok, yes, no, cancel };

enum class Encoding { windows1252, utf8 };

/// A message box. An empty title stands for the program's title.
struct Message {
    std::string text;
    std::string title;
    Buttons buttons = Buttons::ok;
    Icon icon = Icon::none;
    Answer onEnter = Answer::yes; ///< what the Enter key means where the box asks a question
    Encoding encoding = Encoding::windows1252; ///< UTF-8 for texts that show a path

    bool operator==(const Message&) const = default;
};

/// A question with an icon and the buttons Yes and No.
inline Message YesNoQuestion(std::string text, std::string title, Answer onEnter = Answer::yes) {
    return {std::move(text), std::move(title), Buttons::yesNo, Icon::question, onEnter};
}

/// An open or save dialog.
struct FilePrompt {
    std::string title;
    std::string filter; ///< description and pattern, separated by "|"
    std::string initialName;
    std::string defaultExtension;
    std::string startFolder = {}; ///< "" where there is none to prefer

    bool operator==(const FilePrompt&) const = default;
};

} // namespace strativo
