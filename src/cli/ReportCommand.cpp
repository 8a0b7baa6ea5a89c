#include "cli/CommandTable.h"
#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/HtmlReport.h"
#include "cli/ManyFiles.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "cli/ThermalOptions.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <mutex>
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

ReportDetails DetailsOf(const Invocation& call, const std::string& file, const std::string& date) {
    const ThermalChoice choice = ThermalChoiceOf(call);
    ReportDetails details;
    details.file = file;
    details.path = AbsolutePath(file);
    details.date = date;
    details.program = "Strativo " STRATIVO_VERSION;
    details.conditions = choice.conditions;
    details.flows = choice.flows;
    return details;
}

/// Where the page of each file is written.
struct Pages {
    std::map<std::string, std::string> paths; ///< by construction file; "" for standard output
    std::string fault;                        ///< why it cannot be written there; "" for no reason
};

/// DIR/NAME.html.
std::string PagePath(const std::string& folder, const std::string& file) {
    std::string name = file.substr(file.rfind('/') + 1);
    const auto dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0)
        name.resize(dot);
    return folder + name + ".html";
}

Pages PlanPages(const std::vector<std::string>& files, const std::string& output) {
    Pages pages;
    const bool inFolder = output.ends_with('/');
    if (files.size() > 1 && !inFolder)
        pages.fault = "report of several files needs -o DIR/";
    std::map<std::string, std::string> fileOfPage;
    for (const std::string& file : files) {
        const std::string page = inFolder ? PagePath(output, file) : output;
        const auto [taken, isNew] = fileOfPage.emplace(page, file);
        if (!isNew && pages.fault.empty())
            pages.fault = PathToUtf8(taken->second) + " and " + PathToUtf8(file)
                          + " would both be reported in " + PathToUtf8(page);
        if (IsSameFile(page, file))
            pages.fault = PathToUtf8(page) + outputIsInput;
        pages.paths[file] = page;
    }
    return pages;
}

/// Replaces the page's file; false, after a message, if that fails.
bool WritePage(const std::string& path, const std::string& page, std::ostream& err) {
    try {
        FileStamp stamp;
        const std::string notSafe = ReplaceFile(
            path, [&](const ByteSink& sink) { sink(page); }, stamp);
        if (!notSafe.empty())
            PrintError(err, PathToUtf8(path) + ": " + savedButNotSafe + notSafe);
        return true;
    } catch (const WriteError& error) {
        PrintError(err, PathToUtf8(path) + ": " + error.what());
        return false;
    }
}

} // namespace

int WriteReport(const Invocation& call, std::ostream& out, std::ostream& err) {
    Invocation listed = call;
    listed.operands = AllFiles(call);
    listed.filesFrom.clear();
    const Pages pages = PlanPages(listed.operands, call.output);
    if (!pages.fault.empty()) {
        PrintError(err, pages.fault);
        err << UsageLine(FindCommand("report")) << '\n';
        return exitWrongUsage;
    }
    const std::string date = DateInWords(); // the same for all pages, even past midnight
    std::mutex writing; // because the permissions of new files are set for the whole process
    const auto report = [&](const std::string& file, std::ostream& fileOut, std::ostream& fileErr) {
        Session session(file, call, fileErr);
        session.Read();
        if (!session.FileRead())
            return session.Status();
        const std::string& path = pages.paths.at(file);
        if (path.empty()) {
            WriteHtmlReport(fileOut, session.project, DetailsOf(call, file, date));
            return session.Status();
        }
        if (session.HasLibrary(path)) {
            PrintError(fileErr, PathToUtf8(path) + outputIsInput);
            return exitWrongUsage;
        }
        std::ostringstream page;
        WriteHtmlReport(page, session.project, DetailsOf(call, file, date));
        const std::lock_guard oneAtATime(writing);
        return WritePage(path, page.str(), fileErr) ? session.Status() : exitFailure;
    };
    return RunOnFiles(listed, {}, report, out, err);
}

} // namespace strativo
