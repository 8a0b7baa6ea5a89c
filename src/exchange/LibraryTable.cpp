#include "exchange/LibraryTable.h"

#include "calc/CavityTypes.h"
#include "exchange/LibraryColumns.h"
#include "files/MaterialLibraryFile.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"
#include "text/Windows1252.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <set>
#include <utility>

namespace strativo {

namespace {

constexpr std::size_t mostStandardMaterials = 93;
constexpr std::size_t mostUserMaterials = 99;
constexpr int largestCode = std::numeric_limits<std::int16_t>::max();

/// Turns a decimal comma into a point; a text with both is not a number.
std::string WithPoint(std::string_view cell) {
    std::string number(cell);
    const auto comma = number.find(',');
    if (comma != std::string::npos && number.find('.') == std::string::npos)
        number[comma] = '.';
    return number;
}

class TableReader {
public:
    TableReader(const CsvTable& source, LibraryLayout libraryLayout)
        : table(source), layout(libraryLayout) {}

    BuiltLibrary Run() {
        if (table.records.empty()) {
            AddFault(faults, "missing-column", 1, 0, "the table is empty");
        } else {
            places = FindColumns(table.records.front(), faults);
            if (faults.Empty())
                ReadRecords();
        }
        built.faults = faults.First();
        built.moreFaults = faults.More();
        return std::move(built);
    }

private:
    void ReadRecords() {
        const std::size_t most =
            layout == LibraryLayout::user ? mostUserMaterials : mostStandardMaterials;
        for (std::size_t row = 1; row < table.records.size(); ++row) {
            record = &table.records[row];
            if (row > most) {
                AddFault(faults, "too-many-materials", record->line, 0,
                         "a library of this layout holds at most " + std::to_string(most)
                             + " materials");
                return;
            }
            ReadRecord();
        }
        if (table.records.size() == 1)
            AddFault(faults, "no-materials", table.records.front().line, 0,
                     "the table has no row behind its header");
    }

    void ReadRecord() {
        Material material;
        const std::optional<double> code = TakeCode();
        const std::optional<std::string> name = TakeName();
        const std::optional<double> conductivity = TakeConductivity();
        const std::optional<double> density = TakePositive(densityColumn);
        const std::optional<double> heat = TakePositive(heatColumn);
        CheckExtraCells();
        if (!faults.Empty())
            return;
        material.code = *code;
        material.name = NormaliseMaterialName(*name);
        material.conductivity = *conductivity;
        material.density = *density;
        material.specificHeat = *heat;
        Write(material);
    }

    void Fail(const char* rule, int column, const std::string& text) {
        AddFault(faults, rule, record->line, places[static_cast<std::size_t>(column)] + 1,
                 std::string(ColumnName(column)) + ": " + text);
    }

    std::string_view Cell(int column) const {
        const std::size_t place = places[static_cast<std::size_t>(column)];
        return place < record->cells.size() ? std::string_view(record->cells[place]) : "";
    }

    std::optional<double> TakeNumber(int column) {
        const std::string_view cell = WithoutOuterBlanks(Cell(column));
        if (cell.empty()) {
            Fail("empty-cell", column, "the cell is empty");
            return std::nullopt;
        }
        try {
            const std::optional<double> number =
                WholeNumber(table.separator == ',' ? std::string(cell) : WithPoint(cell));
            if (!number)
                Fail("bad-number", column, Quoted(cell) + " is not a number");
            return number ? std::optional(*number + 0.0) : number; // avoids a negative zero
        } catch (const RuntimeError&) {
            Fail(column == codeColumn ? "code-range" : "number-range", column,
                 Quoted(cell) + " is beyond a 64-bit float");
            return std::nullopt;
        }
    }

    std::optional<double> TakeCode() {
        const std::optional<double> code = TakeNumber(codeColumn);
        if (!code)
            return code;
        if (*code != std::floor(*code) || *code < 1 || *code > largestCode) {
            Fail("code-range", codeColumn,
                 Quoted(Cell(codeColumn)) + " is no whole number from 1 to 32767");
            return std::nullopt;
        }
        if (!codes.insert(static_cast<int>(*code)).second)
            Fail("duplicate-code", codeColumn, FormatGeneral(*code) + " was given before");
        return code;
    }

    std::optional<double> TakeConductivity() {
        const std::optional<double> value = TakeNumber(conductivityColumn);
        const bool fits =
            value && *value <= std::numeric_limits<float>::max() && static_cast<float>(*value) > 0;
        if (value && !fits)
            Fail("number-range", conductivityColumn,
                 Quoted(Cell(conductivityColumn)) + " is not above 0 or beyond a 32-bit float");
        return fits ? value : std::nullopt;
    }

    std::optional<double> TakePositive(int column) {
        const std::optional<double> value = TakeNumber(column);
        if (!value || *value >= 0)
            return value;
        Fail("number-range", column, Quoted(Cell(column)) + " is below 0");
        return std::nullopt;
    }

    std::optional<std::string> TakeName() {
        constexpr std::size_t shownInLists = 33;
        const std::string_view cell = Cell(nameColumn);
        if (cell.empty()) {
            Fail("empty-cell", nameColumn, "the cell is empty");
            return std::nullopt;
        }
        const std::optional<std::string> name = NameBytes(cell);
        if (!name || !IsStorable(*name))
            return std::nullopt;
        if (name->size() > shownInLists)
            built.notes.push_back(
                {"name-cut",
                 "name: the material list shows 33 characters of " + Quoted(cell)
                     + ", the layer list 35",
                 std::nullopt, FilePlace{record->line, static_cast<int>(places[nameColumn]) + 1}});
        return name;
    }

    /// The name in Windows-1252, without characters that the loader would change.
    std::optional<std::string> NameBytes(std::string_view cell) {
        std::string bytes;
        for (std::string_view rest = cell; !rest.empty();) {
            const char32_t code = TakeCodePoint(rest).value_or(0);
            const std::optional<char> byte = ByteOf(code);
            const bool reserved = code < ' ' || code == 0x7F || code == '{'
                                  || (code == '\'' && layout == LibraryLayout::standard);
            if (!byte || reserved) {
                Fail("unstorable-character", nameColumn,
                     Quoted(cell) + " holds " + CodePointName(code)
                         + ", which a library cannot hold");
                return std::nullopt;
            }
            bytes += *byte;
        }
        return bytes;
    }

    bool IsStorable(const std::string& name) {
        if (name == endOfLibrary) {
            Fail("reserved-name", nameColumn, "\"-999\" marks the end of a library");
            return false;
        }
        if (layout == LibraryLayout::standard)
            return true;
        const bool quotedComma =
            name.find(',') != std::string::npos && name.find('"') != std::string::npos;
        const char* reason = nullptr;
        if (name.starts_with(' '))
            reason = "begins with a blank";
        else if (name.size() == 1)
            reason = "is of one character";
        else if (quotedComma)
            reason = "holds both a comma and a double quote";
        if (reason != nullptr)
            Fail("unstorable-name", nameColumn,
                 Quoted(Cell(nameColumn)) + " " + reason + ", which the user layout cannot hold");
        return reason == nullptr;
    }

    void CheckExtraCells() {
        const std::size_t width = table.records.front().cells.size();
        for (std::size_t place = width; place < record->cells.size(); ++place)
            if (!WithoutOuterBlanks(record->cells[place]).empty())
                AddFault(faults, "extra-cell", record->line, place + 1,
                         Quoted(record->cells[place]) + " stands behind the last header");
    }

    void Write(const Material& material) {
        const std::string numbers = FormatGeneral(material.conductivity) + " "
                                    + FormatGeneral(material.density) + " "
                                    + FormatGeneral(material.specificHeat) + "\r\n";
        const std::string code = FormatGeneral(material.code);
        if (layout == LibraryLayout::standard) {
            built.bytes += code + "'" + material.name + "' " + numbers;
            return;
        }
        const char* const quote = material.name.find(',') == std::string::npos ? "" : "\"";
        built.bytes += quote + code + "* " + material.name + quote + "," + numbers;
    }

    const CsvTable& table;
    LibraryLayout layout;
    const CsvRecord* record = nullptr;
    std::array<std::size_t, libraryColumns> places{};
    std::set<int> codes;
    FaultList faults;
    BuiltLibrary built;
};

bool IsCavityEntry(const Material& material) {
    MaterialLibrary cavities;
    AppendCavityEntries(cavities, 1);
    return std::any_of(cavities.begin() + 1, cavities.end(), [&](const Material& cavity) {
        return cavity.code < 0 && cavity.code == material.code && cavity.name == material.name;
    });
}

} // namespace

BuiltLibrary BuildLibrary(std::string_view csv, LibraryLayout layout) {
    CsvTable table;
    if (std::optional<Fault> fault = ParseCsv(csv, table)) {
        BuiltLibrary refused;
        refused.faults.push_back(std::move(*fault));
        return refused;
    }
    return TableReader(table, layout).Run();
}

std::string FormatLibraryTable(const MaterialLibrary& library) {
    std::string text =
        "code,name,conductivity_w_per_m_k,density_kg_per_m3,specific_heat_j_per_kg_k\r\n";
    const int count = MaterialCount(library);
    for (int slot = 1; slot <= count; ++slot) {
        const Material& material = library[slot];
        if (IsCavityEntry(material))
            continue;
        text += FormatGeneral(material.code) + "," + CsvCell(ToUtf8(material.name)) + ","
                + FormatGeneral(material.conductivity) + "," + FormatGeneral(material.density) + ","
                + FormatGeneral(material.specificHeat) + "\r\n";
    }
    return text;
}

} // namespace strativo
