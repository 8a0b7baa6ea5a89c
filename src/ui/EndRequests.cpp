#include "ui/EndRequests.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace strativo {

namespace {

// Global, because a signal handler receives nothing but the signal's number.
int writeEnd = -1;

constexpr std::array<int, 3> endSignals = {SIGTERM, SIGHUP, SIGINT};

void HandleEndRequest(int) {
    const int systemError = errno;
    const char anything = 0;
    [[maybe_unused]] const ssize_t count = write(writeEnd, &anything, 1);
    errno = systemError;
}

void Install(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : endSignals)
        sigaction(number, &action, nullptr);
}

} // namespace

EndRequests::EndRequests() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // without a pipe the signals end the program in the usual way
    readEnd = ends[0];
    writeEnd = ends[1];
    Install(HandleEndRequest);
}

EndRequests::~EndRequests() {
    if (readEnd < 0)
        return;
    Install(SIG_DFL);
    close(readEnd);
    close(writeEnd);
}

} // namespace strativo
