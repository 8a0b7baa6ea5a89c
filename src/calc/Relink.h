#pragma once

#include "model/Project.h"

namespace strativo {

/// Copies name and properties of the library materials into the layers of all constructions,
/// names their cavities, makes layer 1 current in each and the last construction current. With
/// duplicate material numbers the last one in the library wins; a material that is not found
/// leaves its layer as it was. Run-time error 6 for a conductivity beyond a 32-bit float.
void RelinkLayers(Project& project);

} // namespace strativo
