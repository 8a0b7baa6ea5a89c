#include "cli/Interruption.h"

#include <atomic>

namespace strativo {

namespace {

// Global, because a signal handler can reach nothing else.
std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);

void NoteInterruption(int) {
    interrupted = true;
}

} // namespace

bool IsInterrupted() {
    return interrupted;
}

InterruptionGuard::InterruptionGuard() {
    interrupted = false;
    sigaction(SIGINT, nullptr, &before);
    if (before.sa_handler == SIG_IGN)
        return;
    struct sigaction noting {};
    noting.sa_handler = NoteInterruption;
    noting.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    sigaction(SIGINT, &noting, nullptr);
}

InterruptionGuard::~InterruptionGuard() {
    sigaction(SIGINT, &before, nullptr);
}

} // namespace strativo
