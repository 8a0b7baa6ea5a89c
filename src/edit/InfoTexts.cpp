#include "edit/InfoTexts.h"

namespace strativo {

namespace {

constexpr std::array<const char*, 5> windowSources = {
    "UvalsDialog.cpp 2.1 2026-11-21", "UValue.cpp 2.1 2026-11-21", "STRATVMD.cpp 2.1 2026-11-21",
    "WINFORM.cpp 2.1 2026-11-21", "WINPRO.cpp 2.1 2026-11-21"};
constexpr char sharedRoutinesSource[] = "LayerClipboard.cpp 2.1 2026-11-21";

} // namespace

std::string CommentText(const Project& project, int number) {
    std::string text;
    for (const std::string& line : project.comments.constructions.Of(number))
        text += line + "\n\r"; // in this order: so the box has always been given it
    return text;
}

void RecordSource(Project& project, ProgramWindow window) {
    const auto index = static_cast<std::size_t>(window);
    project.windowSources.at(index) = windowSources.at(index);
}

std::string SourceText(const Project& project) {
    std::string text;
    for (const std::string& source : project.windowSources)
        text += source + "\r";
    return text + sharedRoutinesSource + "\r";
}

} // namespace strativo
