#include "exchange/CsvText.h"

#include "text/Windows1252.h"

#include <algorithm>

namespace strativo {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view noBreakSpace = "\xC2\xA0";

Fault At(const char* rule, int line, int column, const std::string& text) {
    return {rule, text, std::nullopt, FilePlace{line, column}};
}

std::optional<Fault> EncodingFault(std::string_view text) {
    const char* const advice = "; save the table as CSV UTF-8";
    const bool marked = text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
    if (marked || text.substr(0, 2).find('\0') != std::string_view::npos)
        return At("csv-encoding", 1, 0, std::string("the table is UTF-16 or UTF-32") + advice);
    for (std::string_view rest = text; !rest.empty();) {
        if (static_cast<unsigned char>(rest[0]) < 0x80) {
            rest.remove_prefix(1);
        } else if (!TakeCodePoint(rest)) {
            const std::string_view before = text.substr(0, text.size() - rest.size());
            const auto line = std::count(before.begin(), before.end(), '\n') + 1;
            return At("csv-encoding", static_cast<int>(line), 0,
                      std::string("a byte that is not UTF-8") + advice);
        }
    }
    return std::nullopt;
}

/// The separator used in the first line that contains more than separators, ignoring quoted parts.
char FindSeparator(std::string_view text) {
    const auto start = text.find_first_not_of(" \t,;\r\n\"");
    if (start == std::string_view::npos) { // only empty rows
        const auto separator = text.find_first_of(";\t");
        return separator == std::string_view::npos ? ',' : text[separator];
    }
    const auto lineStart = text.substr(0, start).find_last_of("\r\n");
    std::string_view header = text.substr(lineStart == std::string_view::npos ? 0 : lineStart + 1);
    bool quoted = false;
    bool hasTab = false;
    for (const char c : header) {
        if (c == '"')
            quoted = !quoted;
        if (quoted)
            continue;
        if (c == ';')
            return ';';
        if (c == '\r' || c == '\n')
            break;
        hasTab = hasTab || c == '\t';
    }
    return hasTab ? '\t' : ',';
}

class CsvParser {
public:
    CsvParser(std::string_view source, CsvTable& target) : text(source), table(target) {}

    std::optional<Fault> Run() {
        TakeSeparatorLine();
        while (at < text.size() && !fault) {
            CsvRecord record = TakeRecord();
            if (!fault && !record.IsEmpty())
                table.records.push_back(std::move(record));
        }
        return fault;
    }

private:
    void TakeSeparatorLine() {
        constexpr std::string_view start = "sep=";
        const auto end = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view firstLine = text.substr(0, end);
        const bool given =
            firstLine.size() == start.size() + 1 && firstLine.starts_with(start)
            && (firstLine.back() == ';' || firstLine.back() == ',' || firstLine.back() == '\t');
        table.separator = given ? firstLine.back() : FindSeparator(text);
        if (!given)
            return;
        at = end;
        TakeLineEnd();
    }

    CsvRecord TakeRecord() {
        CsvRecord record;
        record.line = line;
        for (;;) {
            record.cells.push_back(TakeCell(static_cast<int>(record.cells.size()) + 1));
            if (fault || at == text.size())
                return record;
            if (text[at] != table.separator)
                break;
            ++at;
        }
        TakeLineEnd();
        return record;
    }

    std::string TakeCell(int column) {
        if (at < text.size() && text[at] == '"')
            return TakeQuoted(column);
        const char ends[] = {table.separator, '\r', '\n', '\0'};
        const auto end = std::min(text.find_first_of(ends, at, 3), text.size());
        const std::string_view cell = text.substr(at, end - at);
        at = end;
        return std::string(cell);
    }

    std::string TakeQuoted(int column) {
        const int startLine = line;
        std::string cell;
        for (++at; at < text.size(); ++at) {
            const char c = text[at];
            const bool doubled = c == '"' && text.substr(at, 2) == "\"\"";
            if (c == '"' && !doubled)
                break;
            at += doubled ? 1 : 0;
            line += c == '\n' ? 1 : 0;
            cell += c;
        }
        if (at == text.size()) {
            fault = At("csv-quote", startLine, column, "the quote is not closed");
            return cell;
        }
        ++at;
        if (at < text.size() && text[at] != table.separator && text[at] != '\r' && text[at] != '\n')
            fault = At("csv-quote", startLine, column, "text behind the closing quote");
        return cell;
    }

    void TakeLineEnd() {
        if (at < text.size())
            at += text.substr(at, 2) == "\r\n" ? 2 : 1;
        ++line;
    }

    std::string_view text;
    CsvTable& table;
    std::size_t at = 0;
    int line = 1;
    std::optional<Fault> fault;
};

} // namespace

bool CsvRecord::IsEmpty() const {
    return std::all_of(cells.begin(), cells.end(),
                       [](const std::string& cell) { return WithoutOuterBlanks(cell).empty(); });
}

std::optional<Fault> ParseCsv(std::string_view text, CsvTable& table) {
    if (text.size() > largestCsv)
        return At("csv-limit", 0, 0, "the table is larger than 16 MiB");
    if (std::optional<Fault> fault = EncodingFault(text))
        return fault;
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    return CsvParser(text, table).Run();
}

std::string CsvCell(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos)
        return std::string(text);
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

std::string_view WithoutOuterBlanks(std::string_view utf8) {
    for (;;) {
        if (utf8.starts_with(' ') || utf8.starts_with('\t'))
            utf8.remove_prefix(1);
        else if (utf8.ends_with(' ') || utf8.ends_with('\t'))
            utf8.remove_suffix(1);
        else if (utf8.starts_with(noBreakSpace))
            utf8.remove_prefix(noBreakSpace.size());
        else if (utf8.ends_with(noBreakSpace))
            utf8.remove_suffix(noBreakSpace.size());
        else
            return utf8;
    }
}

} // namespace strativo
