#pragma once

#include "model/Project.h"

#include <iosfwd>
#include <string>

namespace strativo {

/// The names of the columns.
extern const char csvHead[];

/// One row per layer of all constructions in use, in UTF-8; texts are quoted where they need it.
void WriteCsvRows(std::ostream& out, const Project& project, const std::string& file);

} // namespace strativo
