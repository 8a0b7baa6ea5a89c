#pragma once

#include "calc/ThermalConditions.h"
#include "draw/Drawing.h"

namespace strativo {

/// The construction's section to scale, outside on the left, with a strip for each air film and the
/// temperature from air to air as a line through it. Without thermal figures it is drawn without
/// strips and line, with the reason below.
Drawing DrawSection(const Construction& construction, const ThermalConditions& conditions,
                    HeatFlow flow);

} // namespace strativo
