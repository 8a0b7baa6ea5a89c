#include "project/Manual.h"

#include <filesystem>
#include <utility>

namespace strativo {

namespace fs = std::filesystem;

namespace {

bool IsThere(const fs::path& page) {
    std::error_code error;
    return fs::is_regular_file(page, error);
}

} // namespace

std::string ManualPageAbout(std::string_view window) {
    constexpr std::pair<std::string_view, const char*> pages[] = {
        {"UValue", "window-construction.html"}, {"UvalsDialog", "window-materials.html"},
        {"WinForm", "window-glass-types.html"}, {"Profile", "window-glass-editor.html"},
        {"SectionWindow", "thermal.html"},      {"ConCommentBox", "boxes.html"},
        {"About_Strativo", "boxes.html"},       {"MessageBox", "boxes.html"},
    };
    for (const auto& [name, page] : pages)
        if (name == window)
            return page;
    return "window-main.html";
}

std::string ManualPage(const std::string& programFolder) {
    const fs::path program(programFolder);
    const fs::path installed = program / "../share/doc/strativo/manual/index.html";
    if (IsThere(installed))
        return installed;
    for (fs::path above = program; above.has_relative_path(); above = above.parent_path()) {
        const fs::path page = above / "docs/manual/index.html";
        if (IsThere(page))
            return page;
    }
    return installed;
}

} // namespace strativo
