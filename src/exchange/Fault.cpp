#include "exchange/Fault.h"

#include "text/Printable.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <utility>

namespace strativo {

namespace {

/// Extra room, because faults may be found before others that precede them in the file.
constexpr std::size_t roomForFaults = 2 * FaultList::limit;

} // namespace

void FaultList::Add(std::size_t offset, Fault fault) {
    if (entries.size() == roomForFaults)
        Sort();
    entries.push_back({offset, std::move(fault)});
}

void FaultList::Sort() {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.offset < b.offset; });
    if (entries.size() <= limit)
        return;
    more += entries.size() - limit;
    entries.erase(entries.begin() + limit, entries.end());
}

std::vector<Fault> FaultList::First() {
    Sort();
    std::vector<Fault> faults;
    for (const Entry& entry : entries)
        faults.push_back(entry.fault);
    return faults;
}

std::size_t FaultList::More() {
    Sort();
    return more;
}

std::string Excerpt(std::string_view utf8) {
    constexpr int longest = 60;
    std::string_view rest = utf8;
    for (int count = 0; count < longest && !rest.empty(); ++count)
        if (!TakeCodePoint(rest))
            rest.remove_prefix(1);
    return Printable(utf8.substr(0, utf8.size() - rest.size())) + (rest.empty() ? "" : "...");
}

std::string Quoted(std::string_view utf8) {
    return '"' + Excerpt(utf8) + '"';
}

std::string CodePointName(char32_t code) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string name;
    for (; code != 0 || name.size() < 4; code /= 16)
        name.insert(name.begin(), digits[code % 16]);
    return "U+" + name;
}

} // namespace strativo
