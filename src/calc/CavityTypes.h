#pragma once

#include "model/Material.h"

#include <string>

namespace strativo {

inline constexpr int resistanceCavity = -3; ///< its thickness field holds a resistance, m2 C/W

/// Writes the six cavity entries to the given row and those after it, followed by the end marker.
/// Throws run-time error 9 for the first that would lie beyond the library's last row.
void AppendCavityEntries(MaterialLibrary& library, int row);

/// The name that a layer with this negative code gets: that of its cavity type, or "Unknown type "
/// and the code.
std::string CavityLayerName(int code);

/// Whether the code has a layer name of its own.
bool IsNamedCavity(int code);

} // namespace strativo
