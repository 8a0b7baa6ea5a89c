#pragma once

namespace strativo {

/// As long as it lives, signals that ask a program to end (SIGTERM, SIGHUP, SIGINT) arrive at a
/// descriptor instead of ending it. Only one may exist at a time.
class EndRequests {
public:
    EndRequests();
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

    /// A descriptor that becomes readable with the first of these signals.
    int Descriptor() const { return readEnd; }

private:
    int readEnd = -1;
};

} // namespace strativo
