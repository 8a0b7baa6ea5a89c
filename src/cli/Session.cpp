#include "cli/Session.h"

#include "cli/ExitStatus.h"
#include "project/NewProject.h"
#include "project/ReadConstructionFile.h"
#include "project/Settings.h"

#include <exception>

namespace strativo {

std::string CallersPath(const std::string& path) {
    return path == singleBlank ? "./ " : path;
}

Session::Session(const std::string& callersFile, const Invocation& call, std::ostream& err)
    : file(callersFile),
      desktop(err, callersFile,
              {CallersPath(call.standardLibrary), CallersPath(call.userLibrary), ""}) {
    Settings settings = ReadSettings(SettingsFiles());
    if (!call.standardLibrary.empty())
        settings.stdMat = CallersPath(call.standardLibrary);
    StartUp(project, settings, desktop);
}

bool Session::Run(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const ProgramEnd&) {
        return false; // the desktop has noted it
    } catch (const std::exception& error) {
        desktop.Report(error.what());
        return false;
    }
}

void Session::Read() {
    const bool ran = Run([&] { ReadConstructionFile(project, CallersPath(file), desktop); });
    fileRead = ran && !project.constructionFile.empty();
}

int Session::Status() const {
    return desktop.Failed() ? exitFailure : exitAllWell;
}

} // namespace strativo
