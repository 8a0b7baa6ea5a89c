#pragma once

#include <csignal>

namespace strativo {

/// Whether the user pressed Ctrl+C while a guard existed.
bool IsInterrupted();

/// While a guard exists, the first Ctrl+C is only recorded, so that work in progress can be
/// completed; a second one ends the program at once. Signals that are ignored, as in the
/// background, stay ignored.
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
