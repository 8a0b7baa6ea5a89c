#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/HtmlReport.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "cli/ThermalOptions.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <ostream>
#include <sstream>
#include <system_error>

namespace strativo {

namespace {

/// Today as "21 November 2026", or the day of SOURCE_DATE_EPOCH (seconds), so that a report can be
/// made again byte for byte.
std::string DateInWords() {
    constexpr const char* months[] = {"January",   "February", "March",    "April",
                                      "May",       "June",     "July",     "August",
                                      "September", "October",  "November", "December"};
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    const std::time_t now = epoch == nullptr ? std::time(nullptr) : std::atoll(epoch);
    std::tm day{};
    if ((epoch == nullptr ? localtime_r(&now, &day) : gmtime_r(&now, &day)) == nullptr)
        return "";
    return std::to_string(day.tm_mday) + ' ' + months[day.tm_mon] + ' '
           + std::to_string(day.tm_year + 1900);
}

std::string AbsolutePath(const std::string& file) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(file, error);
    return error ? file : path.lexically_normal().string();
}

ReportDetails DetailsOf(const Invocation& call, const std::string& file) {
    const ThermalChoice choice = ThermalChoiceOf(call);
    ReportDetails details;
    details.file = file;
    details.path = AbsolutePath(file);
    details.date = DateInWords();
    details.program = "Strativo " STRATIVO_VERSION;
    details.conditions = choice.conditions;
    details.flows = choice.flows;
    return details;
}

} // namespace

int WriteReport(const Invocation& call, std::ostream& out, std::ostream& err) {
    Session session(call.operands[0], call, err);
    session.Read();
    if (!session.FileRead())
        return session.Status();
    const ReportDetails details = DetailsOf(call, session.file);
    if (call.output.empty()) {
        WriteHtmlReport(out, session.project, details);
        return session.Status();
    }
    if (session.HasLibrary(call.output)) {
        PrintError(err, PathToUtf8(call.output) + outputIsInput);
        return exitWrongUsage;
    }
    std::ostringstream page;
    WriteHtmlReport(page, session.project, details);
    try {
        FileStamp stamp;
        const std::string notSafe = ReplaceFile(
            call.output, [&](const ByteSink& sink) { sink(page.str()); }, stamp);
        if (!notSafe.empty())
            PrintError(err, PathToUtf8(call.output) + ": " + savedButNotSafe + notSafe);
        return session.Status();
    } catch (const WriteError& error) {
        PrintError(err, PathToUtf8(call.output) + ": " + error.what());
    }
    return exitFailure;
}

} // namespace strativo
