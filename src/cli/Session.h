#pragma once

#include "cli/Invocation.h"
#include "cli/TerminalPrompts.h"
#include "model/Project.h"

#include <functional>
#include <iosfwd>
#include <string>

namespace strativo {

/// The path in a form that the core does not take for a cancelled prompt, which a single blank
/// stands for there.
std::string CallersPath(const std::string& path);

/// A project just started, for one file of the command line.
class Session {
public:
    Session(const std::string& callersFile, const Invocation& call, std::ostream& err);

    /// Runs an action of the core, which tells whether all went well. The end of the program and
    /// exceptions, which are reported, end only the action, and give false too.
    bool Run(const std::function<bool()>& action);
    /// Reads the file as a construction file.
    void Read();
    /// The file was read to its end, with or without trouble about its libraries.
    bool FileRead() const { return fileRead; }
    /// It was, but no line of it is one of a construction file.
    bool IsForeign() const { return foreign; }
    /// An action did not go well.
    bool Failed() const { return failed; }
    /// Whether the path leads to a library that the file names.
    bool HasLibrary(const std::string& path) const;
    /// 0, or 3 when an action did not go well.
    int Status() const;

    const std::string file; ///< as the caller wrote it
    TerminalPrompts prompts;
    Project project;

private:
    bool fileRead = false;
    bool foreign = false;
    bool failed = false;
};

} // namespace strativo
