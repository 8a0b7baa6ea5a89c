#pragma once

#include "cli/Invocation.h"
#include "cli/TerminalPrompts.h"
#include "model/Project.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace strativo {

/// The path, changed if the core would take it for a cancelled prompt, which a single blank stands
/// for.
std::string CallersPath(const std::string& path);

/// A newly started project for one file of the command line.
class Session {
public:
    Session(const std::string& callersFile, const Invocation& call, std::ostream& err);

    /// Runs an action of the core, which returns whether all went well. False, too, if the program
    /// would have ended or an exception was thrown and reported; the next action can still run.
    bool Run(const std::function<bool()>& action);
    /// Reads the file as a construction file.
    void Read();
    /// Whether the file was read to its end, with or without trouble about its libraries.
    bool WasRead() const { return fileRead; }
    /// Reads the file in order to write something made of it; one in which no line is one of a
    /// construction file is refused.
    void ReadToWrite();
    /// Whether ReadToWrite() lets the file through: nothing failed, and some line is one of a
    /// construction file.
    bool MayBeRewritten() const { return !failed && !foreign; }
    /// Whether an action failed.
    bool Failed() const { return failed; }
    /// Whether an output of that name would replace a library that the file names, which is told.
    bool WouldLoseLibrary(const std::string& path, std::ostream& err) const;
    /// 0, or 3 if an action failed.
    int Status() const;

    const std::string file; ///< as the caller wrote it
    TerminalPrompts prompts;
    Project project;

private:
    bool HasLibrary(const std::string& path) const;

    bool fileRead = false;
    bool foreign = false;
    bool failed = false;
};

} // namespace strativo
