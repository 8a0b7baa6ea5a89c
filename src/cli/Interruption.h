#pragma once

#include <csignal>

namespace strativo {

/// The user asked for an end (Ctrl+C) while a guard was there.
bool IsInterrupted();

/// While it lives, the first Ctrl+C is only noted, so that what was begun can be ended; a second
/// one ends the program at once. Where such signals are ignored, as in the background, they stay
/// so.
class InterruptionGuard {
public:
    InterruptionGuard();
    ~InterruptionGuard();
    InterruptionGuard(const InterruptionGuard&) = delete;
    InterruptionGuard& operator=(const InterruptionGuard&) = delete;

private:
    struct sigaction before {};
};

} // namespace strativo
