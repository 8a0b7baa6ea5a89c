#include "project/CopySchedule.h"

#include <algorithm>

namespace strativo {

void CopySchedule::Edited(Clock::time_point now) {
    if (!first)
        first = now;
    last = now;
}

std::optional<std::chrono::milliseconds> CopySchedule::Wait(Clock::time_point now) const {
    if (!first)
        return std::nullopt;
    const auto due = std::min(last + intervals.afterLast, *first + intervals.afterFirst);
    // Rounded up, so that the copy is really due after the wait.
    return std::max(std::chrono::milliseconds(0),
                    std::chrono::ceil<std::chrono::milliseconds>(due - now));
}

} // namespace strativo
