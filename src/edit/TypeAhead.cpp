#include "edit/TypeAhead.h"

#include "text/Lines.h"
#include "text/Windows1252.h"

namespace strativo {

namespace {

template <class Matches>
int NextLine(const std::vector<std::string>& names, int from, Matches matches) {
    const int count = static_cast<int>(names.size());
    const int start = from >= 0 && from < count ? from : 0;
    for (int step = 0; step < count; ++step) {
        const int line = (start + step) % count;
        if (matches(LowerCase(names[static_cast<std::size_t>(line)])))
            return line;
    }
    return -1;
}

} // namespace

int LineOfTyped(const std::vector<std::string>& names, std::string_view typed, int from) {
    if (typed.empty())
        return -1;
    const std::string wanted = LowerCase(typed);
    const auto begins = [&](const std::string& name) { return name.starts_with(wanted); };
    const auto contains = [&](const std::string& name) { return Contains(name, wanted); };
    const int line = NextLine(names, from, begins);
    if (line >= 0)
        return line;
    const char letter = wanted.front();
    const bool again = wanted.find_first_not_of(letter) == std::string::npos;
    const int next =
        again && wanted.size() > 1 ? NextLine(
            names, from + 1, [&](const std::string& name) { return name.starts_with(letter); })
                                   : -1;
    return next >= 0 ? next : NextLine(names, from, contains);
}

} // namespace strativo
