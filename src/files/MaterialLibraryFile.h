#pragma once

#include "model/Material.h"
#include "text/RuntimeError.h"

#include <optional>
#include <string>
#include <string_view>

namespace strativo {

/// What a library file gave.
struct LibraryContent {
    MaterialLibrary library;
    bool wrongVersion = false; ///< a record was not of the layout; reading stopped there
    /// Error 6, or 9 for too many materials: the library holds what was stored before it. It has
    /// no end marker where there is no slot left for one.
    std::optional<ErrorNumber> failure;
};

/// Reads the standard layout (records such as 12'FACE BRICK' 0.84 1700 800) and appends the
/// cavity entries, also after a wrong record, where they follow the materials read before it and
/// slot 1 ends the library. At most 93 materials leave room for them. Run-time error 5.
LibraryContent ParseStandardLibrary(std::string_view bytes);

/// Reads the user layout: records of two fields, such as 12* FACE BRICK and 0.84 1700 800, 99 at
/// most. A wrong record leaves an empty library. Run-time error 5.
LibraryContent ParseUserLibrary(std::string_view bytes);

/// The name in capitals: a to z, and with them the left brace, which becomes a left bracket.
std::string NormaliseMaterialName(std::string_view name);

} // namespace strativo
