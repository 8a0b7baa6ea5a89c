#pragma once

#include "exchange/CsvText.h"
#include "exchange/Fault.h"

#include <array>

namespace strativo {

enum LibraryColumn { codeColumn, nameColumn, conductivityColumn, densityColumn, heatColumn };
inline constexpr int libraryColumns = 5;

/// A column's name as messages show it.
const char* ColumnName(int column);

/// The index (from 0) in a record for each column of a library. Reports missing and duplicate
/// columns as faults.
std::array<std::size_t, libraryColumns> FindColumns(const CsvRecord& header, FaultList& faults);

/// Adds a fault at that line and cell.
void AddFault(FaultList& faults, const char* rule, int line, std::size_t column,
              const std::string& text);

} // namespace strativo
