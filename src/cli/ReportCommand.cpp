#include "cli/CommandTable.h"
#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/HtmlReport.h"
#include "cli/InputOutput.h"
#include "cli/ManyFiles.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "cli/ThermalOptions.h"
#include "files/FileAccess.h"

#include <charconv>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <ostream>
#include <set>
#include <sstream>
#include <system_error>
#include <utility>

namespace strativo {

namespace {

/// The moment that SOURCE_DATE_EPOCH gives in seconds, so that a report can be made again byte for
/// byte; nothing where it is no such number.
std::optional<std::time_t> GivenMoment() {
    const char* const text = std::getenv("SOURCE_DATE_EPOCH");
    if (text == nullptr)
        return std::nullopt;
    const char* const end = text + std::strlen(text);
    std::time_t seconds = 0;
    const auto read = std::from_chars(text, end, seconds);
    return read.ec == std::errc() && read.ptr == end ? std::optional(seconds) : std::nullopt;
}

/// The given day, otherwise today, as "21 November 2026".
std::string DateInWords() {
    constexpr const char* months[] = {"January",   "February", "March",    "April",
                                      "May",       "June",     "July",     "August",
                                      "September", "October",  "November", "December"};
    const std::optional<std::time_t> given = GivenMoment();
    const std::time_t moment = given.value_or(std::time(nullptr));
    std::tm day{};
    if ((given ? gmtime_r(&moment, &day) : localtime_r(&moment, &day)) == nullptr)
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
    std::map<std::string, std::string> paths; ///< by construction file
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

/// Device and inode, which are the same for all names of a file.
using FileIdentity = std::pair<std::uint64_t, std::uint64_t>;

std::optional<FileIdentity> IdentityOf(const std::string& path) {
    const FileStamp stamp = StampOf(path);
    return stamp == FileStamp() ? std::nullopt
                                : std::optional(FileIdentity(stamp.device, stamp.inode));
}

/// The construction files, the libraries given as options and the list of file names.
std::set<FileIdentity> InputsOf(const Invocation& call, const std::vector<std::string>& files) {
    std::vector<std::string> names = files;
    names.insert(names.end(), {call.standardLibrary, call.userLibrary, call.filesFrom});
    std::set<FileIdentity> inputs;
    for (const std::string& name : names)
        if (const auto identity = IdentityOf(name))
            inputs.insert(*identity);
    return inputs;
}

Pages PlanPages(const Invocation& call, const std::vector<std::string>& files) {
    Pages pages;
    const std::string output = call.output.empty() ? standardStream : call.output;
    const bool inFolder = output.ends_with('/');
    const std::set<FileIdentity> inputs = InputsOf(call, files);
    if (files.size() > 1 && !inFolder)
        pages.fault = "report of several files needs -o DIR/";
    std::map<std::string, std::string> fileOfPage;
    for (const std::string& file : files) {
        const std::string page = inFolder ? PagePath(output, file) : output;
        const auto [taken, isNew] = fileOfPage.emplace(page, file);
        if (!isNew && pages.fault.empty())
            pages.fault = PathToUtf8(taken->second) + " and " + PathToUtf8(file)
                          + " would both be reported in " + PathToUtf8(page);
        const auto replaced = page == standardStream ? std::nullopt : IdentityOf(page);
        if (replaced && inputs.count(*replaced) > 0)
            pages.fault = PathToUtf8(page) + outputIsInput;
        pages.paths[file] = page;
    }
    return pages;
}

/// Makes the folder of the pages unless there is one; false where that failed, which is told.
bool MakeFolder(const std::string& output, std::ostream& err) {
    std::error_code error;
    if (output.ends_with('/'))
        std::filesystem::create_directory(output, error);
    if (error == std::errc::file_exists) // and is none
        error = std::make_error_code(std::errc::not_a_directory);
    if (error)
        PrintError(err, PathToUtf8(output) + ": " + error.message());
    return !error;
}

} // namespace

int WriteReport(const Invocation& call, std::ostream& out, std::ostream& err) {
    Invocation listed = call;
    listed.operands = AllFiles(call);
    const Pages pages = PlanPages(call, listed.operands);
    listed.filesFrom.clear();
    if (!pages.fault.empty()) {
        PrintError(err, pages.fault);
        err << UsageLine(FindCommand("report")) << '\n';
        return exitWrongUsage;
    }
    if (!listed.operands.empty() && !MakeFolder(call.output, err))
        return exitFailure;
    const std::string date = DateInWords(); // the same for all pages, even past midnight
    std::mutex writing; // because the permissions of new files are set for the whole process
    const auto report = [&](const std::string& file, std::ostream& fileOut, std::ostream& fileErr) {
        Session session(file, call, fileErr);
        session.Read();
        if (!session.WasRead())
            return session.Status();
        const std::string& path = pages.paths.at(file);
        if (session.WouldLoseLibrary(path, fileErr))
            return exitWrongUsage;
        std::ostringstream page;
        WriteHtmlReport(page, session.project, DetailsOf(call, file, date));
        const std::lock_guard oneAtATime(writing);
        const bool written = WriteOrTell(
            path, [&](const ByteSink& sink) { sink(page.str()); }, fileOut, fileErr);
        return written ? session.Status() : exitFailure;
    };
    return RunOnFiles(listed, {}, report, out, err);
}

} // namespace strativo
