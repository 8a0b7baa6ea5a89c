#include "exchange/LibraryColumns.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace strativo {

namespace {

struct ColumnNames {
    const char* name;
    std::vector<std::string_view> accepted; ///< lower case, letters and digits only
    std::vector<std::string_view> alike;    ///< how similar headers begin, whatever their unit
    const char* known;                      ///< the accepted headers as messages list them
};

const std::array<ColumnNames, libraryColumns>& Columns() {
    static const std::array<ColumnNames, libraryColumns> columns = {{
        {"code", {"code", "number", "materialcode"}, {"code", "number"}, "code, number"},
        {"name", {"name", "material"}, {"name", "material"}, "name, material"},
        {"conductivity",
         {"conductivity", "conductivitywmk", "conductivitywpermk", "conductivitywmc",
          "conductivitywm1k1", "lambda", "lambdawmk", "thermalconductivitywmk"},
         {"conductivity", "lambda", "thermalconductivity"},
         "conductivity in W/m K or W/m C"},
        {"density",
         {"density", "densitykgperm3", "densitykgm3", "densitykgm"},
         {"density"},
         "density in kg/m3"},
        {"specific heat",
         {"specificheat", "specificheatjperkgk", "specificheatjkgk", "specificheatjkgc",
          "specificheatcapacityjkgk", "cpjkgk"},
         {"specificheat", "cp"},
         "specific heat in J/kg K or J/kg C"},
    }};
    return columns;
}

std::string Plain(std::string_view header) {
    std::string plain;
    for (const char c : header) {
        const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
        if ((lower >= 'a' && lower <= 'z') || (lower >= '0' && lower <= '9'))
            plain += lower;
    }
    return plain;
}

bool BeginsAlike(const ColumnNames& column, const std::string& plain) {
    return std::any_of(column.alike.begin(), column.alike.end(),
                       [&](std::string_view start) { return plain.starts_with(start); });
}

/// The headers that were probably meant, or else all of them.
std::string FoundHeaders(const CsvRecord& header, const ColumnNames& column) {
    std::string alike;
    std::string all;
    for (const std::string& cell : header.cells) {
        all += (all.empty() ? "" : " ") + cell;
        if (BeginsAlike(column, Plain(cell)))
            alike += (alike.empty() ? "" : ", ") + Quoted(cell);
    }
    return alike.empty() ? Quoted(all) : alike;
}

bool Accepts(const ColumnNames& column, const std::string& cell) {
    return std::find(column.accepted.begin(), column.accepted.end(), Plain(cell))
           != column.accepted.end();
}

} // namespace

const char* ColumnName(int column) {
    return Columns()[static_cast<std::size_t>(column)].name;
}

std::array<std::size_t, libraryColumns> FindColumns(const CsvRecord& header, FaultList& faults) {
    std::array<std::size_t, libraryColumns> places{};
    for (std::size_t column = 0; column < libraryColumns; ++column) {
        const ColumnNames& names = Columns()[column];
        bool found = false;
        for (std::size_t place = 0; place < header.cells.size(); ++place) {
            if (!Accepts(names, header.cells[place]))
                continue;
            if (found)
                AddFault(faults, "duplicate-column", header.line, place + 1,
                         std::string(names.name) + ": a second column of it, "
                             + Quoted(header.cells[place]));
            else
                places[column] = place;
            found = true;
        }
        if (!found)
            AddFault(faults, "missing-column", header.line, 0,
                     std::string(names.name) + ": no such column; found: "
                         + FoundHeaders(header, names) + "; known: " + names.known);
    }
    return places;
}

void AddFault(FaultList& faults, const char* rule, int line, std::size_t column,
              const std::string& text) {
    constexpr unsigned columnBits = 32;
    faults.Add((static_cast<std::size_t>(line) << columnBits) + column,
               {rule, text, std::nullopt, FilePlace{line, static_cast<int>(column)}});
}

} // namespace strativo
