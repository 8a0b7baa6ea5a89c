#pragma once

#include "cli/HtmlReport.h"

#include <string>

namespace strativo {

/// The page's style sheet; file, date and program stand at the edges of printed pages.
std::string ReportStyleSheet(const ReportDetails& details);

} // namespace strativo
