#pragma once

#include "model/Project.h"

namespace strativo {

/// While it lives, a crash or a lost connection to the display keeps a recovery copy of the
/// project before the process ends, and the signals that ask a program to end arrive at a
/// descriptor. There is one at a time.
class CrashGuard {
public:
    explicit CrashGuard(const Project& project);
    ~CrashGuard();
    CrashGuard(const CrashGuard&) = delete;
    CrashGuard& operator=(const CrashGuard&) = delete;

    /// Becomes readable when the program is asked to end (SIGTERM, SIGHUP, SIGINT).
    int EndRequests() const { return readEnd; }

private:
    int readEnd = -1;
};

} // namespace strativo
