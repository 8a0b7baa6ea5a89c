#include "project/WindowState.h"

#include "files/FileAccess.h"
#include "project/RecoveryStore.h"

#include <algorithm>
#include <cstdio>
#include <exception>

namespace strativo {

namespace {

constexpr int mostPixels = 32767; // more than any screen has

bool IsPlausible(const ScreenArea& place) {
    const auto isPosition = [](int value) { return std::abs(value) <= mostPixels; };
    const auto isSize = [](int value) { return value > 0 && value <= mostPixels; };
    return isPosition(place.x) && isPosition(place.y) && isSize(place.width)
           && isSize(place.height);
}

std::string PathIn(const std::string& folder) {
    return folder + "/window";
}

} // namespace

ScreenArea FitInto(ScreenArea place, const ScreenArea& available) {
    place.width = std::min(place.width, available.width);
    place.height = std::min(place.height, available.height);
    place.x = std::clamp(place.x, available.x, available.x + available.width - place.width);
    place.y = std::clamp(place.y, available.y, available.y + available.height - place.height);
    return place;
}

std::optional<WindowState> ParseWindowState(std::string_view bytes) {
    WindowState state;
    int maximised = 0;
    const std::string text(bytes);
    std::sscanf(text.c_str(), "position %9d %9d\nsize %9d %9d\nmaximised %1d\n", &state.place.x,
                &state.place.y, &state.place.width, &state.place.height, &maximised);
    state.maximised = maximised == 1;
    // A file that does not read back exactly is damaged.
    if (!IsPlausible(state.place) || FormatWindowState(state) != text)
        return std::nullopt;
    return state;
}

std::string FormatWindowState(const WindowState& state) {
    const ScreenArea& place = state.place;
    const auto text = [](int number) { return std::to_string(number); };
    return "position " + text(place.x) + ' ' + text(place.y) + "\nsize " + text(place.width) + ' '
           + text(place.height) + "\nmaximised " + (state.maximised ? "1" : "0") + '\n';
}

std::optional<WindowState> ReadWindowState(const std::string& folder) {
    try {
        return ParseWindowState(ReadFileBytes(PathIn(folder)));
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

void KeepWindowState(const WindowState& state, const std::string& folder) noexcept {
    try {
        if (folder.empty() || ReadWindowState(folder) == state || !MakePrivateFolder(folder))
            return;
        FileStamp stamp;
        ReplaceFile(
            PathIn(folder), [&](const ByteSink& sink) { sink(FormatWindowState(state)); }, stamp);
    } catch (const std::exception&) { // the next start simply has the usual size
    }
}

} // namespace strativo
