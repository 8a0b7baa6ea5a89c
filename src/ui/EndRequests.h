#pragma once

#include <array>
#include <csignal>

namespace strativo {

/// As long as it lives, signals that ask a program to end (SIGTERM, SIGHUP, SIGINT) arrive at a
/// descriptor instead of ending it. One that the program was started to ignore stays ignored, as
/// nohup wants it. Only one may exist at a time.
class EndRequests {
public:
    EndRequests();
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

    /// A descriptor that becomes readable with the first of these signals.
    int Descriptor() const { return readEnd; }

private:
    struct Signal {
        int number;
        struct sigaction before;
    };

    std::array<Signal, 3> endSignals = {{{SIGTERM, {}}, {SIGHUP, {}}, {SIGINT, {}}}};
    int readEnd = -1;
};

} // namespace strativo
