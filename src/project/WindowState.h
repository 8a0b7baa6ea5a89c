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
    ScreenArea place; ///< while not maximised
    bool maximised = false;

    friend bool operator==(const WindowState&, const WindowState&) = default;
};

/// The place, no larger than what is available and wholly inside of it.
ScreenArea FitInto(ScreenArea place, const ScreenArea& available);

/// Nothing where the bytes are not what FormatWindowState writes.
std::optional<WindowState> ParseWindowState(std::string_view bytes);
std::string FormatWindowState(const WindowState& state);

/// The state kept in the folder; nothing where none can be read.
std::optional<WindowState> ReadWindowState(const std::string& folder);
/// Keeps the state in the folder, which is made when needed. A failure is nobody's concern: the
/// next start has the usual size.
void KeepWindowState(const WindowState& state, const std::string& folder) noexcept;

} // namespace strativo
