#pragma once

#include "model/Material.h"

#include <string>

namespace strativo {

inline constexpr int resistanceCavity = -3; ///< its thickness field holds a resistance, m2 C/W

/// Appends the six cavity entries at the row and those behind it, and the end marker after them.
/// Run-time error 9 for the first of them that would pass the library's last row.
void AppendCavityEntries(MaterialLibrary& library, int row);

/// The name that a layer of this negative code gets: that of its cavity type, or "Unknown type "
/// and the code.
std::string CavityLayerName(int code);

/// The code has a layer name of its own.
bool IsNamedCavity(int code);

} // namespace strativo
