#pragma once

#include <cstdlib>
#include <ctime>

namespace strativo {

/// Nanoseconds of a clock that never goes back. With PROCESSOR_TIME in the environment it is this
/// process's own processor time, which other programs on the machine disturb less.
inline long long Nanoseconds() {
    static const clockid_t clock =
        std::getenv("PROCESSOR_TIME") == nullptr ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID;
    timespec time{};
    clock_gettime(clock, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

} // namespace strativo
