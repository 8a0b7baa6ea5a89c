#pragma once

#include "model/Material.h"
#include "text/RuntimeError.h"

#include <optional>
#include <string>
#include <string_view>

namespace strativo {

/// What reading a library file produced.
struct LibraryContent {
    MaterialLibrary library;
    bool wrongVersion = false; ///< a record did not have the layout, and reading stopped there
    /// Error 6, or 9 for too many materials; the library holds what was stored before, without an
    /// end marker if no slot is left for it.
    std::optional<ErrorNumber> failure;
};

/// Reads the standard layout (records such as 12'FACE BRICK' 0.84 1700 800) and appends the cavity
/// entries. After a wrong record they follow the materials read before it, and slot 1 ends the
/// library. Room is left for them by at most 93 materials. Throws run-time error 5.
LibraryContent ParseStandardLibrary(std::string_view bytes);

/// Reads the user layout: at most 99 records of two fields, such as 12* FACE BRICK and 0.84 1700
/// 800. A wrong record leaves an empty library. Throws run-time error 5.
LibraryContent ParseUserLibrary(std::string_view bytes);

/// The name in capitals: a to z and, with them, the left brace, which becomes a left bracket.
std::string NormaliseMaterialName(std::string_view name);

} // namespace strativo
