#pragma once

#include "cli/JsonWriter.h"
#include "cli/ThermalOptions.h"
#include "model/Construction.h"

namespace strativo {

/// "outside" or "inside".
const char* SideName(FirstLayer side);

/// A construction's thermal figures as members: whether they are available, why not, and the
/// figures.
Json JsonOfThermal(const Construction& construction, const ThermalChoice& choice);

} // namespace strativo
