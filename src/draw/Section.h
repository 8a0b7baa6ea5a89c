#pragma once

#include "calc/ThermalConditions.h"
#include "draw/Drawing.h"

namespace strativo {

/// The construction's section to scale, outside on the left, with a strip for each air film and
/// the temperature from air to air drawn through it as one line. A construction without thermal
/// figures is drawn without strips and line, and the reason stands below.
Drawing DrawSection(const Construction& construction, const ThermalConditions& conditions,
                    HeatFlow flow);

} // namespace strativo
