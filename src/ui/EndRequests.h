#pragma once

namespace strativo {

/// While it lives, the signals that ask a program to end (SIGTERM, SIGHUP, SIGINT) arrive at a
/// descriptor instead of ending it. There is one at a time.
class EndRequests {
public:
    EndRequests();
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

    /// Becomes readable with the first of them.
    int Descriptor() const { return readEnd; }

private:
    int readEnd = -1;
};

} // namespace strativo
