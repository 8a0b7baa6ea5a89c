#pragma once

#include "model/Project.h"

#include <iosfwd>
#include <string>

namespace strativo {

/// A text as a field, quoted where it needs it.
std::string CsvField(const std::string& utf8);

/// The names of the columns.
void WriteCsvHead(std::ostream& out);

/// One row per layer of all constructions in use, in UTF-8; texts are quoted where they need it.
void WriteCsvRows(std::ostream& out, const Project& project, const std::string& file);

} // namespace strativo
