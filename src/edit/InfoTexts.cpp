#include "edit/InfoTexts.h"

namespace strativo {

const char* const mainCaption = "Brevan Strativo V" STRATIVO_VERSION;
const char* const versionText = "Strativo Version " STRATIVO_VERSION;

const char* const howToBegin =
    "New construction in the File menu (Alt+F, C) begins a construction.\n"
    "Enter or a double click in Select Material gives it layers.\n\n"
    "Open construction file... (Ctrl+O) opens a file, and so does dropping it here.\n\n"
    "F1 explains the window in which you are.";

namespace {

constexpr std::array<const char*, 5> windowSources = {"UvalsDialog.cpp", "UValue.cpp",
                                                      "STRATVMD.cpp", "WINFORM.cpp", "WINPRO.cpp"};

std::string Identification(const char* source) {
    return std::string(source) + " " STRATIVO_VERSION " 2026-11-21";
}

} // namespace

std::string CommentText(const Project& project, int number) {
    std::string text;
    for (const std::string& line : project.comments.constructions.Of(number))
        text += line + "\n\r"; // in this order on purpose: the box expects it
    return text;
}

void RecordSource(Project& project, ProgramWindow window) {
    const auto index = static_cast<std::size_t>(window);
    project.windowSources.at(index) = Identification(windowSources.at(index));
}

std::string SourceText(const Project& project) {
    std::string text;
    for (const std::string& source : project.windowSources)
        text += source + "\r";
    return text + Identification("LayerClipboard.cpp") + "\r";
}

} // namespace strativo
