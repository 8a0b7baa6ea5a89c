#pragma once

#include "cli/HtmlReport.h"

#include <string>

namespace strativo {

/// The page's style sheet; it puts file, date and program in the margins of printed pages.
std::string ReportStyleSheet(const ReportDetails& details);

} // namespace strativo
