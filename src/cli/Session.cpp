#include "cli/Session.h"

#include "cli/ExitStatus.h"
#include "cli/InputOutput.h"
#include "cli/TextOutput.h"
#include "files/FileAccess.h"
#include "project/NewProject.h"
#include "project/ReadConstructionFile.h"
#include "project/Settings.h"
#include "text/RuntimeError.h"

#include <exception>

namespace strativo {

std::string CallersPath(const std::string& path) {
    return path == singleBlank ? "./ " : path;
}

Session::Session(const std::string& callersFile, const Invocation& call, std::ostream& err)
    : file(callersFile),
      prompts(err, callersFile,
              {CallersPath(call.standardLibrary), CallersPath(call.userLibrary), ""}) {
    Settings settings = ReadSettings(SettingsFiles());
    if (!call.standardLibrary.empty())
        settings.stdMat = CallersPath(call.standardLibrary);
    StartUp(project, settings);
}

bool Session::Run(const std::function<bool()>& action) {
    bool ran = false;
    try {
        ran = action();
    } catch (const ProgramEnd&) {
        ran = false;
        prompts.NoteEnd();
    } catch (const std::exception& error) {
        prompts.Report(FailureText(error));
    }
    failed = failed || !ran;
    return ran;
}

void Session::Read() {
    Run([&] {
        const FileReading result = ReadConstructionFile(project, CallersPath(file), prompts);
        foreign = result == FileReading::foreign;
        const bool whole = result == FileReading::whole || foreign;
        fileRead = whole || result == FileReading::withoutLibrary;
        return whole;
    });
}

void Session::ReadToWrite() {
    Read();
    if (!foreign)
        return;
    prompts.Report("No line is one of a construction file; nothing is written");
    failed = true;
}

bool Session::HasLibrary(const std::string& path) const {
    if (path == standardStream)
        return false;
    const std::string folder = FolderOf(project.constructionFile);
    const auto isAt = [&](const std::string& name) {
        return IsSameFile(path, FindFile(name, folder));
    };
    return (project.standardLoaded && isAt(project.standardLibraryFile))
           || (project.userLoaded && isAt(project.userLibraryFile));
}

bool Session::WouldLoseLibrary(const std::string& path, std::ostream& err) const {
    const bool wouldLose = HasLibrary(path);
    if (wouldLose)
        PrintError(err, PathToUtf8(path) + outputIsInput);
    return wouldLose;
}

int Session::Status() const {
    return failed ? exitFailure : exitAllWell;
}

} // namespace strativo
