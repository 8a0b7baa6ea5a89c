#include "ui/EndRequests.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace strativo {

namespace {

// Global, because a signal handler receives nothing but the signal's number.
int writeEnd = -1;

void HandleEndRequest(int) {
    const int systemError = errno;
    const char anything = 0;
    [[maybe_unused]] const ssize_t count = write(writeEnd, &anything, 1);
    errno = systemError;
}

} // namespace

EndRequests::EndRequests() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // without a pipe the signals end the program in the usual way
    readEnd = ends[0];
    writeEnd = ends[1];
    struct sigaction handling {};
    handling.sa_handler = HandleEndRequest;
    handling.sa_flags = SA_RESTART;
    sigemptyset(&handling.sa_mask);
    for (Signal& signal : endSignals) {
        sigaction(signal.number, nullptr, &signal.before);
        if (signal.before.sa_handler != SIG_IGN)
            sigaction(signal.number, &handling, nullptr);
    }
}

EndRequests::~EndRequests() {
    if (readEnd < 0)
        return;
    for (const Signal& signal : endSignals)
        sigaction(signal.number, &signal.before, nullptr);
    close(readEnd);
    close(writeEnd);
}

} // namespace strativo
