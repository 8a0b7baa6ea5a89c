#pragma once

#include "exchange/Fault.h"
#include "files/NamedPart.h"
#include "model/Project.h"

#include <string_view>
#include <vector>

namespace strativo {

/// A project made from a text, or what stands in the way.
struct BuiltProject {
    Project project;
    std::vector<Fault>
        faults; ///< in document order; the project is one to be used if there is none
    std::size_t moreFaults = 0; ///< number of those left out
};

/// Makes the project that `strativo-cli show --json` prints as this text, as far as a construction
/// file holds it; libraries are not read. Names that do not come back from such a file are faults.
BuiltProject BuildProject(std::string_view json, const NameTest& comesBack);

} // namespace strativo
