#pragma once

#include "exchange/Fault.h"
#include "files/LibraryFindings.h"
#include "model/Material.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// A library file made from a table, or what stands in the way.
struct BuiltLibrary {
    std::string bytes;
    std::vector<Fault>
        faults; ///< in order of line and column; the bytes are valid if there is none
    std::size_t moreFaults = 0; ///< number of those left out
    std::vector<Fault> notes;   ///< what is worth telling but no fault
};

/// Makes the library file of a table of materials: a CSV text whose header names the columns code,
/// name, conductivity (W/m C), density (kg/m3) and specific heat (J/kg C).
BuiltLibrary BuildLibrary(std::string_view csv, LibraryLayout layout);

/// Such a table of the materials before the end marker, in UTF-8, without the entries for cavities
/// that every standard library is loaded with.
std::string FormatLibraryTable(const MaterialLibrary& library);

} // namespace strativo
