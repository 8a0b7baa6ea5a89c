#include "edit/WindowList.h"

#include "calc/UValue.h"
#include "edit/ConstructionSlots.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <array>

namespace strativo {

namespace {

constexpr int digits = 9;

/// The lowest digit not taken, which is then taken; 0 none.
int TakeDigit(std::array<bool, digits + 1>& taken) {
    const auto free = std::find(taken.begin() + 1, taken.end(), false);
    if (free == taken.end())
        return 0;
    *free = true;
    return static_cast<int>(free - taken.begin());
}

void GiveDigits(std::vector<MenuWindow>& windows) {
    std::array<bool, digits + 1> taken{};
    const std::size_t first = std::min<std::size_t>(windows.size(), digits);
    for (std::size_t i = 0; i < first; ++i) {
        const int number = windows[i].id;
        if (number < 1 || number > digits)
            continue;
        windows[i].digit = number;
        taken[static_cast<std::size_t>(number)] = true;
    }
    for (std::size_t i = 0; i < first; ++i)
        if (windows[i].digit == 0)
            windows[i].digit = TakeDigit(taken);
}

} // namespace

WindowLine LineOfConstruction(const Project& project, int number) {
    const Construction& construction = project.constructions[number];
    return {std::to_string(number), ToUtf8(construction.name),
            construction.type == transparentType ? "Transparent" : "Opaque",
            UValueText(construction)};
}

bool Matches(const WindowLine& line, std::string_view filter) {
    const std::string caption = line.number.empty() ? "" : "Construction " + line.number;
    const std::string all =
        LowerCase(FromUtf8(caption + '\n' + line.name + '\n' + line.type + '\n' + line.uValue));
    const std::string words = LowerCase(FromUtf8(filter));
    for (std::size_t start = 0; start < words.size();) {
        const std::size_t end = std::min(words.find(' ', start), words.size());
        if (all.find(words.substr(start, end - start)) == std::string::npos)
            return false;
        start = end + 1;
    }
    return true;
}

std::vector<MenuWindow> WindowsInMenu(const std::vector<int>& constructions,
                                      const std::vector<int>& others, std::size_t room) {
    const std::size_t roomForConstructions = room - std::min(room, others.size());
    std::vector<MenuWindow> windows;
    for (const int id : constructions)
        if (windows.size() < roomForConstructions)
            windows.push_back({id, 0});
    for (const int id : others)
        windows.push_back({id, 0});
    GiveDigits(windows);
    return windows;
}

std::string MaterialTarget(const Project& project) {
    const int number = project.currentConstruction;
    if (!project.dialogActive || !InUse(project, number))
        return "";
    const std::string title = ConstructionTitle(number);
    const std::string& name = project.constructions[number].name;
    return "Materials go to " + title + (name == title ? "" : ": " + ToUtf8(name));
}

} // namespace strativo
