#pragma once

#include "files/Finding.h"

#include <string_view>
#include <vector>

namespace strativo {

enum class LibraryLayout { standard, user };

/// The layout that the first non-empty line suggests: an asterisk before any apostrophe means the
/// user layout.
LibraryLayout LayoutOfLibrary(std::string_view bytes);

/// Whether it contains a keyword of construction files.
bool HasConstructionKeyword(std::string_view bytes);

/// What is wrong or implausible in the bytes of a material library, by line. Every line that would
/// stop the loader is reported with the reason, and checking goes on after it.
std::vector<Finding> FindingsOfLibrary(std::string_view bytes, LibraryLayout layout);

} // namespace strativo
