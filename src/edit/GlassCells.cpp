#include "edit/GlassCells.h"

#include "edit/ConstructionEntry.h"
#include "edit/Saying.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace strativo {

namespace {

/// The text with every kind of line end as a line feed, and without the final one.
std::string WithLineFeeds(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!pair)
            plain += text[i] == '\r' ? '\n' : text[i];
    }
    if (!plain.empty() && plain.back() == '\n')
        plain.pop_back();
    return plain;
}

std::vector<std::string> Split(const std::string& cells) {
    std::vector<std::string> pieces(cells.empty() ? 0 : 1);
    for (const char c : cells) {
        if (c == '\t' || c == '\n')
            pieces.emplace_back();
        else
            pieces.back() += c;
    }
    return pieces;
}

std::string WithoutOuterBlanks(const std::string& cell) {
    const auto first = cell.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : cell.substr(first, cell.find_last_not_of(' ') - first + 1);
}

std::optional<double> Fraction(const std::string& text) {
    std::string cell = WithoutOuterBlanks(text);
    std::replace(cell.begin(), cell.end(), ',', '.');
    try {
        const std::optional<double> value = WholeNumber(cell);
        const bool fits = value && *value >= 0 && *value <= 1;
        return fits ? value : std::nullopt;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::string QuotedCell(const std::string& cell) {
    constexpr std::size_t longest = 40;
    const std::string clean = CleanEntry(cell);
    return "\"" + clean.substr(0, longest) + (clean.size() > longest ? "..." : "") + "\"";
}

} // namespace

std::string CellsOf(const AngularValues& values) {
    std::string cells;
    for (const float value : values)
        cells += (cells.empty() ? "" : "\t") + FormatGeneral(AsDecimal(value));
    return cells;
}

bool PasteCells(Project& project, GlassProfile& profile, std::string_view cells, Prompts& prompts) {
    const std::vector<std::string> pieces = Split(WithLineFeeds(cells));
    if (pieces.size() != static_cast<std::size_t>(profileColumns)) {
        prompts.ShowMessage({"Eleven numbers are needed, but the clipboard holds "
                                 + std::to_string(pieces.size()) + " cells.",
                             ""});
        return false;
    }
    AngularValues values;
    for (int column = 1; column <= profileColumns; ++column) {
        const std::string& cell = pieces[static_cast<std::size_t>(column) - 1];
        const std::optional<double> value = Fraction(cell);
        if (!value) {
            prompts.ShowMessage({QuotedCell(cell) + " is not a number from 0 to 1.", ""});
            return false;
        }
        values[column] = ToSingle(*value);
    }
    project.changed = project.changed || values != profile.Shown();
    profile.Shown() = values;
    Say(project, "Eleven values pasted. Ctrl+Z takes them back");
    return true;
}

} // namespace strativo
