#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace strativo {

/// A rectangle on the screen, in logical pixels.
struct ScreenArea {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const ScreenArea&, const ScreenArea&) = default;
};

/// What is remembered of the main window from one start to the next.
struct WindowState {
    ScreenArea place; ///< its place when not maximised
    bool maximised = false;

    friend bool operator==(const WindowState&, const WindowState&) = default;
};

/// The place moved and shrunk so that it lies wholly inside the available area.
ScreenArea FitInto(ScreenArea place, const ScreenArea& available);

/// Nothing if the bytes are not what FormatWindowState writes.
std::optional<WindowState> ParseWindowState(std::string_view bytes);
std::string FormatWindowState(const WindowState& state);

/// The state stored in the folder; nothing if it is missing or damaged.
std::optional<WindowState> ReadWindowState(const std::string& folder);
/// Stores the state in the folder, creating it if necessary. A failure is ignored: the next start
/// then simply has the usual size.
void KeepWindowState(const WindowState& state, const std::string& folder) noexcept;

} // namespace strativo
