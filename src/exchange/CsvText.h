#pragma once

#include "exchange/Fault.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

struct CsvRecord {
    int line = 0; ///< line of the file where the record begins
    std::vector<std::string> cells;

    /// Whether all cells are empty or blank.
    bool IsEmpty() const;
};

/// A table as spreadsheets write it, without records of empty cells.
struct CsvTable {
    char separator = ',';
    std::vector<CsvRecord> records;
};

inline constexpr std::size_t largestCsv = std::size_t{16} << 20; ///< bytes

/// Splits a table into records and cells. The text is UTF-8, with or without a byte order mark. A
/// first line such as "sep=;" names the separator; otherwise it is a semicolon, tab or comma,
/// whichever the first record has first. There is at most one fault: csv-encoding, csv-limit or
/// csv-quote.
std::optional<Fault> ParseCsv(std::string_view text, CsvTable& table);

/// A text (UTF-8) as a cell between commas, quoted if necessary.
std::string CsvCell(std::string_view text);

/// The text without blanks, tabs and no-break spaces at its ends.
std::string_view WithoutOuterBlanks(std::string_view utf8);

} // namespace strativo
