#pragma once

#include "files/Finding.h"

#include <string_view>
#include <vector>

namespace strativo {

enum class LibraryLayout { standard, user };

/// As the first line with a text tells: an asterisk before any apostrophe is the user layout.
LibraryLayout LayoutOfLibrary(std::string_view bytes);

/// A keyword of construction files stands in it.
bool HasConstructionKeyword(std::string_view bytes);

/// What is wrong or implausible in the bytes of a material library, in the order of its lines. Each
/// line at which the loader would stop is told, with the reason, and looking goes on behind it.
std::vector<Finding> FindingsOfLibrary(std::string_view bytes, LibraryLayout layout);

} // namespace strativo
