#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/HtmlReport.h"
#include "cli/Session.h"
#include "cli/TextOutput.h"
#include "files/FileAccess.h"

#include <algorithm>
#include <ostream>
#include <sstream>

namespace strativo {

int WriteReport(const Invocation& call, std::ostream& out, std::ostream& err) {
    Session session(call.operands[0], call, err);
    session.Read();
    if (!session.FileRead())
        return session.Status();
    if (call.output.empty()) {
        WriteHtmlReport(out, session.project, session.file);
        return session.Status();
    }
    std::ostringstream page;
    WriteHtmlReport(page, session.project, session.file);
    try {
        FileStamp stamp;
        ReplaceFile(
            call.output, [&](const ByteSink& sink) { sink(page.str()); }, stamp);
    } catch (const WriteError& error) {
        PrintError(err, PathToUtf8(call.output) + ": " + error.what());
        return exitFailure;
    }
    return session.Status();
}

} // namespace strativo
