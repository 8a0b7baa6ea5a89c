#pragma once

#include "calc/ThermalConditions.h"
#include "model/Project.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace strativo {

/// What a report shows apart from the project.
struct ReportDetails {
    std::string file;    ///< as the caller wrote it
    std::string path;    ///< absolute path of the file
    std::string date;    ///< date of the report, in words
    std::string program; ///< name and version of the program
    ThermalConditions conditions;
    std::vector<HeatFlow> flows = {HeatFlow::horizontal}; ///< at least one; temperatures are for it
};

/// Writes a self-contained HTML page about the project, printable on A4: an overview, constructions
/// with their sections, layers and thermal characteristics, glass types with their curves, and what
/// `check` finds. Texts from files are shown, never interpreted.
void WriteHtmlReport(std::ostream& out, const Project& project, const ReportDetails& details);

} // namespace strativo
