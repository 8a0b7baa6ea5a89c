#pragma once

#include "model/Project.h"

namespace strativo {

/// Copies name and properties of the library materials into the layers of all constructions and
/// names their cavities. Makes layer 1 current in each construction, and the last construction
/// current. Of duplicate material numbers the last one in the library wins; a layer whose material
/// is not found stays as it was. Throws run-time error 6 for a conductivity beyond a 32-bit float.
void RelinkLayers(Project& project);

} // namespace strativo
