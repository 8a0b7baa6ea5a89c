#include "cli/Commands.h"
#include "cli/Session.h"
#include "files/GlassImport.h"
#include "project/FileCommands.h"

#include <ostream>

namespace strativo {

namespace {

/// Writes nothing if anything could not be read.
void Save(Session& session, const std::string& path) {
    if (session.Failed())
        return;
    session.project.constructionFile = CallersPath(path);
    session.Run([&] { return SaveProject(session.project, session.prompts); });
}

void Import(Session& session, const std::string& from) {
    if (!session.FileRead())
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
    Save(session, call.operands[1]);
    return session.Status();
}

int ImportGlass(const Invocation& call, std::ostream&, std::ostream& err) {
    Session session(call.operands[0], call, err);
    session.ReadToWrite();
    Import(session, call.operands[1]);
    Save(session, call.operands[2]);
    return session.Status();
}

} // namespace strativo
