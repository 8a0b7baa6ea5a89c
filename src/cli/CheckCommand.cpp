#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/JsonRecords.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "files/FileAccess.h"
#include "files/FileMessages.h"
#include "files/Findings.h"
#include "files/LibraryFindings.h"

#include <algorithm>
#include <optional>
#include <ostream>

namespace strativo {

namespace {

const char* SeverityName(const Finding& finding) {
    return SeverityOf(finding) == Severity::error ? "error" : "warning";
}

Json JsonOf(const Finding& finding) {
    Json json = {{"rule", finding.rule}, {"severity", SeverityName(finding)}};
    const auto addNumber = [&](const char* key, int number) {
        if (number > 0)
            json[key] = number;
    };
    addNumber("construction", finding.construction);
    addNumber("layer", finding.layer);
    addNumber("glassType", finding.glassType);
    addNumber("material", finding.material);
    addNumber("line", finding.line);
    json["name"] = ToUtf8(finding.name);
    json["text"] = ToUtf8(finding.text);
    return json;
}

void PrintAsJson(JsonLayout layout, std::ostream& out, const Session& session,
                 const std::vector<Finding>& findings) {
    JsonWriter writer(out, layout);
    writer.Begin('{');
    WriteFileMembers(writer, session);
    writer.Key("findings");
    writer.Begin('[');
    for (const Finding& finding : findings)
        writer.Value(JsonOf(finding));
    writer.End(']');
    writer.End('}');
}

void PrintAsText(std::ostream& out, const Session& session, const std::vector<Finding>& findings) {
    const std::string file = ShownPath(session.file);
    for (const Finding& finding : findings) {
        out << file << ':';
        if (finding.line > 0)
            out << finding.line << ':';
        out << ' ';
        // Errors in a construction file are printed without the word "error", because scripts rely
        // on it.
        if (finding.line > 0 || SeverityOf(finding) == Severity::warning)
            out << SeverityName(finding) << ": ";
        out << finding.rule << ": " << ShownText(finding.text) << '\n';
    }
}

bool IsWanted(const Finding& finding, const Invocation& call) {
    const auto holds = [&](const std::vector<std::string>& rules) {
        return std::find(rules.begin(), rules.end(), finding.rule) != rules.end();
    };
    return (call.rules.empty() || holds(call.rules)) && !holds(call.leftOutRules);
}

bool IsNamedAsLibrary(const std::string& path) {
    constexpr std::string_view ending = ".lby";
    return path.size() >= ending.size()
           && LowerCase(std::string_view(path).substr(path.size() - ending.size())) == ending;
}

/// The bytes of a file whose name and content are those of a library; nothing for any other file.
std::optional<std::string> LibraryBytes(Session& session, bool user) {
    if (!IsNamedAsLibrary(session.file))
        return std::nullopt;
    try {
        std::string bytes = ReadFileBytes(CallersPath(session.file));
        return HasConstructionKeyword(bytes) ? std::nullopt : std::optional(std::move(bytes));
    } catch (const RuntimeError& error) {
        const FileMessages& messages = user ? userLibraryMessages : standardLibraryMessages;
        session.Run([&] {
            session.prompts.ShowMessage({messages.Text(error.Number()), ""});
            return false;
        });
        return "";
    }
}

std::vector<Finding> FindingsInLibrary(std::string_view bytes, bool user) {
    return FindingsOfLibrary(bytes, user ? LibraryLayout::user : LayoutOfLibrary(bytes));
}

/// No findings for a construction file that was not read to its end, since its layers are not
/// linked.
std::vector<Finding> FindingsInProject(Session& session) {
    session.Read();
    return session.WasRead() ? FindingsOf(session.project) : std::vector<Finding>();
}

std::vector<Finding> FindingsIn(Session& session, const Invocation& call) {
    const std::optional<std::string> library = LibraryBytes(session, call.user);
    std::vector<Finding> findings =
        library ? FindingsInLibrary(*library, call.user) : FindingsInProject(session);
    std::erase_if(findings, [&](const Finding& finding) { return !IsWanted(finding, call); });
    return findings;
}

int StatusOf(const std::vector<Finding>& findings, const Invocation& call) {
    const auto counts = [&](const Finding& finding) {
        return call.strict || SeverityOf(finding) == Severity::error;
    };
    return std::any_of(findings.begin(), findings.end(), counts) ? exitFindings : exitAllWell;
}

} // namespace

int Check(const Invocation& call, std::ostream& out, std::ostream& err) {
    const bool asJson = call.json || call.jsonLines;
    const auto check = [&](const std::string& file, std::ostream& fileOut, std::ostream& fileErr) {
        Session session(file, call, fileErr);
        const std::vector<Finding> findings = FindingsIn(session, call);
        if (asJson)
            PrintAsJson(JsonLayoutOf(call), fileOut, session, findings);
        else
            PrintAsText(fileOut, session, findings);
        return std::max(session.Status(), StatusOf(findings, call));
    };
    return RunOnFiles(call, asJson ? JsonFrame(call) : OutputFrame(), check, out, err);
}

} // namespace strativo
