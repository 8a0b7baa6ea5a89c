#pragma once

#include "model/Project.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// A window in a list of windows, its texts in UTF-8. A window that is no construction has a name
/// only.
struct WindowLine {
    std::string number;
    std::string name;
    std::string type;
    std::string uValue; ///< W/m2 C, or "n/a"

    bool operator==(const WindowLine&) const = default;
};

/// The line of a construction in use.
WindowLine LineOfConstruction(const Project& project, int number);

/// Each word of the filter (UTF-8) stands somewhere in the line or in the caption of its window,
/// whatever its letter case.
bool Matches(const WindowLine& line, std::string_view filter);

/// A window in the Window menu.
struct MenuWindow {
    int id = 0;
    int digit = 0; ///< the access key before its caption; 0 none

    bool operator==(const MenuWindow&) const = default;
};

/// The windows that the menu has room for: constructions in their order, then all others. The
/// first nine have a digit, which is the construction's number where that is one.
std::vector<MenuWindow> WindowsInMenu(const std::vector<int>& constructions,
                                      const std::vector<int>& others, std::size_t room);

/// Where a material would go while the Select Material dialog is active, in UTF-8; "" otherwise
/// and without a construction.
std::string MaterialTarget(const Project& project);

} // namespace strativo
