#pragma once

#include <iosfwd>

namespace strativo {

/// Runs the command line tool and returns its exit status: 0 all is well, 1 `check` found an error,
/// 2 wrong usage, 3 a file could not be read or written.
int RunCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

} // namespace strativo
