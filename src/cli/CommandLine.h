#pragma once

#include <iosfwd>

namespace strativo {

/// Runs the command line tool with these arguments, the program's name first, and returns one of
/// the exit statuses of ExitStatus.h.
int RunCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

} // namespace strativo
