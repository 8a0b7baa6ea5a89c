#pragma once

#include "exchange/Fault.h"
#include "files/NamedPart.h"
#include "model/Project.h"

#include <string_view>
#include <vector>

namespace strativo {

/// The project made from a text, or the faults that prevent it.
struct BuiltProject {
    Project project;
    std::vector<Fault> faults;  ///< in document order; only without any is the project usable
    std::size_t moreFaults = 0; ///< number of those left out
};

/// Makes the project from a text that `strativo-cli show --json` prints, as far as a construction
/// file can hold it; libraries are not read. Names that would not survive such a file are faults.
BuiltProject BuildProject(std::string_view json, const NameTest& comesBack);

} // namespace strativo
