#include "cli/Commands.h"
#include "cli/ExitStatus.h"
#include "cli/Session.h"
#include "files/GlassImport.h"
#include "project/FileCommands.h"

#include <ostream>

namespace strativo {

namespace {

/// Writes nothing if anything could not be read; returns the exit status.
int Save(Session& session, const std::string& path, std::ostream& err) {
    if (session.Failed())
        return session.Status();
    if (session.WouldLoseLibrary(path, err))
        return exitWrongUsage;
    session.project.constructionFile = CallersPath(path);
    session.Run([&] { return SaveProject(session.project, session.prompts); });
    return session.Status();
}

void Import(Session& session, const std::string& from) {
    if (!session.WasRead())
        return;
    session.prompts.AnswerConstructionFile(CallersPath(from));
    session.prompts.SetSubject(from);
    session.Run([&] {
        return ImportGlassDefinitions(session.project, session.prompts) == ImportResult::imported;
    });
    session.prompts.SetSubject(session.file);
}

} // namespace

int Rewrite(const Invocation& call, std::ostream&, std::ostream& err) {
    Session session(call.operands[0], call, err);
    session.ReadToWrite();
    return Save(session, call.operands[1], err);
}

int ImportGlass(const Invocation& call, std::ostream&, std::ostream& err) {
    Session session(call.operands[0], call, err);
    session.ReadToWrite();
    Import(session, call.operands[1]);
    return Save(session, call.operands[2], err);
}

} // namespace strativo
