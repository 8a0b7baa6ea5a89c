#pragma once

#include "draw/Drawing.h"
#include "model/GlassType.h"

namespace strativo {

/// Transmission, absorption and, if the type has it, diffusion over the angle of incidence, each
/// with its diffuse value beside it. Dashes and dots tell them apart without colours.
Drawing DrawGlassCurves(const GlassType& type);

} // namespace strativo
