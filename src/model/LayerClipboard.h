#pragma once

#include "model/Layer.h"
#include "model/NumberedTable.h"

namespace strativo {

/// An entry is a layer without its selection mark; an empty name marks an empty slot.
using ClipEntry = Layer;

/// The program-wide clipboard of layers; it survives changes of construction and of project.
using LayerClipboard = NumberedTable<ClipEntry, 1, maxLayers>;

} // namespace strativo
