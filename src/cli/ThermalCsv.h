#pragma once

#include "cli/ThermalOptions.h"
#include "model/Project.h"

#include <iosfwd>

namespace strativo {

/// The names of the columns.
void WriteThermalCsvHead(std::ostream& out);

/// A row for each construction in use and each direction of heat flow asked for, in UTF-8.
void WriteThermalCsvRows(std::ostream& out, const Project& project, const std::string& file,
                         const ThermalChoice& choice);

} // namespace strativo
