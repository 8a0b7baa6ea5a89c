#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/JsonRecords.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "files/Findings.h"

#include <algorithm>
#include <ostream>

namespace strativo {

namespace {

Json JsonOf(const Finding& finding) {
    Json json = {{"rule", finding.rule}};
    if (finding.construction > 0)
        json["construction"] = finding.construction;
    if (finding.layer > 0)
        json["layer"] = finding.layer;
    if (finding.glassType > 0)
        json["glassType"] = finding.glassType;
    json["name"] = ToUtf8(finding.name);
    json["text"] = ToUtf8(finding.text);
    return json;
}

void PrintAsJson(JsonWriter& writer, const Session& session, const std::vector<Finding>& findings) {
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
    for (const Finding& finding : findings)
        out << file << ": " << finding.rule << ": " << ShownText(finding.text) << '\n';
}

/// None of a file that was not read to its end, whose layers are not linked.
std::vector<Finding> FindingsIn(const Session& session) {
    return session.FileRead() ? FindingsOf(session.project) : std::vector<Finding>();
}

} // namespace

int Check(const Invocation& call, std::ostream& out, std::ostream& err) {
    int status = exitAllWell;
    JsonWriter writer(out);
    if (call.json)
        writer.Begin('[');
    for (const std::string& file : call.operands) {
        Session session(file, call, err);
        session.Read();
        const std::vector<Finding> findings = FindingsIn(session);
        if (call.json)
            PrintAsJson(writer, session, findings);
        else
            PrintAsText(out, session, findings);
        status =
            std::max({status, session.Status(), findings.empty() ? exitAllWell : exitFindings});
    }
    if (call.json)
        writer.End(']');
    return status;
}

} // namespace strativo
