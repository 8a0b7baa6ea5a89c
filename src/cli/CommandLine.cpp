#include "cli/CommandLine.h"

namespace strativo {

int RunCommandLine(int, const char* const*, std::ostream&, std::ostream&) {
    return 2;
}

} // namespace strativo
