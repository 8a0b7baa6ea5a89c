#pragma once

#include "exchange/Fault.h"
#include "files/LibraryFindings.h"
#include "model/Material.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// The library file made from a table, or the faults that prevent it.
struct BuiltLibrary {
    std::string bytes;
    std::vector<Fault> faults;  ///< by line and column; the bytes are valid if there is none
    std::size_t moreFaults = 0; ///< number of those left out
    std::vector<Fault> notes;   ///< remarks that are not faults
};

/// Makes a library file from a table of materials: a CSV text whose header names the columns code,
/// name, conductivity (W/m C), density (kg/m3) and specific heat (J/kg C).
BuiltLibrary BuildLibrary(std::string_view csv, LibraryLayout layout);

/// Makes such a table, in UTF-8, from the materials before the end marker, without the cavity
/// entries that every standard library is loaded with.
std::string FormatLibraryTable(const MaterialLibrary& library);

} // namespace strativo
