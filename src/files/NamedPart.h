#pragma once

#include <functional>
#include <string>

namespace strativo {

/// What a name in a construction file belongs to; each is read by different rules.
enum class NamedPart { standardLibrary, userLibrary, construction, glassType, glassType2D };

/// Whether a name or path may be written.
using NameTest = std::function<bool(NamedPart part, const std::string& name)>;

} // namespace strativo
