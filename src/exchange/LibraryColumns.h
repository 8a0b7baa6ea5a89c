#pragma once

#include "exchange/CsvText.h"
#include "exchange/Fault.h"

#include <array>

namespace strativo {

enum LibraryColumn { codeColumn, nameColumn, conductivityColumn, densityColumn, heatColumn };
inline constexpr int libraryColumns = 5;

/// Name of a column as messages show it.
const char* ColumnName(int column);

/// For each column of a library the place of its cells in a record, from 0 on. Faults: missing
/// and duplicate columns.
std::array<std::size_t, libraryColumns> FindColumns(const CsvRecord& header, FaultList& faults);

/// Adds a fault that stands at that line and cell.
void AddFault(FaultList& faults, const char* rule, int line, std::size_t column,
              const std::string& text);

} // namespace strativo
