#pragma once

#include "exchange/Fault.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strativo {

struct CsvRecord {
    int line = 0; ///< of the file, where the record begins
    std::vector<std::string> cells;

    /// No cell holds more than blanks.
    bool IsEmpty() const;
};

/// A table as spreadsheets write it, records of empty cells left out.
struct CsvTable {
    char separator = ',';
    std::vector<CsvRecord> records;
};

inline constexpr std::size_t largestCsv = std::size_t{16} << 20; ///< bytes

/// Takes a table apart: UTF-8, a byte order mark allowed; separated as a first line "sep=;" says,
/// else by semicolons, tabs or commas, whichever of these the first record has first. The only
/// fault, if there is one: csv-encoding, csv-limit or csv-quote.
std::optional<Fault> ParseCsv(std::string_view text, CsvTable& table);

/// A text (UTF-8) as a cell between commas, quoted where it needs it.
std::string CsvCell(std::string_view text);

/// The text without blanks, tabs and no-break spaces at its ends.
std::string_view WithoutOuterBlanks(std::string_view utf8);

} // namespace strativo
